#include "fetchkit/session/model/Organization.h"

#include <utility>

#include "fetchkit/base/Guard.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/session/model/Business.h"

namespace fetchkit {

std::uint8_t Organization::OrganizationProperty() const {
  const auto business = MAction::Business(MAction::CurrentSession());
  return business->GroupDBType() == 1 && business->AccountProperty() == 1
             ? std::uint8_t{2}
             : business->AccountProperty();
}

std::int16_t Organization::BeginYear() const {
  return ToInteger(beginYear_);
}

Text Organization::LowerOrganizationId() const {
  const Text& below = NextLevelOrganizationId();
  return below.empty() ? Join(OrganizationID()) : Join(OrganizationID(), u",", below);
}

namespace MAction {
namespace {

// Collects ids into a list property, which is emptied at once and holds what was read when the
// collector goes, also on an error in mid-rows.
class IdCollector {
 public:
  explicit IdCollector(Property<Text>& target) : target_(target) { target_({}); }
  ~IdCollector() { target_(std::move(ids_)); }
  IdCollector(const IdCollector&) = delete;
  IdCollector& operator=(const IdCollector&) = delete;

  void Add(std::int32_t id) {
    if (!ids_.empty()) ids_.push_back(u',');
    ids_.append(Piece(id).view());
  }

 private:
  Property<Text>& target_;
  Text ids_;
};

void LoadRow(Session& session, fetchkit::Organization& organization) {
  const Text sql = Join(
      u"SELECT lngOrganizationID,strOrganizationCode,strOrganizationName,strFullName,intlevel,",
      u"strDate,strStartDate,blnIsBase,blnIsCache,blnIsCenter,blnIsControl,blnIsDetail,"
      u"blnIsInActive,blnIsInitialized,blnIsVoucher ",
      u"FROM Organization ", u"WHERE blnIsInActive = 0 ", u"AND blnIsInitialized = 1 ",
      u"AND lngOrganizationID = ", session.LoginOrganizationId, u" ",
      u"ORDER BY strOrganizationCode");
  OpenedRecordset row(ConnectionOf(session), sql, Cursor::Plain);
  if (!row) return;
  if (row.HasRow()) {
    organization.OrganizationID(ToLong(row[u"lngOrganizationID"]));
    organization.OrganizationCode(ToText(row[u"strOrganizationCode"]));
    organization.OrganizationName(ToText(row[u"strOrganizationName"]));
    organization.OrganizationFullName(ToText(row[u"strFullName"]));
    organization.Level(ToInteger(row[u"intlevel"]));
    organization.CreateDate(ToDateText(row[u"strDate"]));
    organization.StartDate(ToDateText(row[u"strStartDate"]));
    organization.IsBase(ToBoolean(row[u"blnIsBase"]));
    organization.IsCache(ToBoolean(row[u"blnIsCache"]));
    organization.IsCenter(ToBoolean(row[u"blnIsCenter"]));
    organization.IsControl(ToBoolean(row[u"blnIsControl"]));
    organization.IsDetail(ToBoolean(row[u"blnIsDetail"]));
    organization.IsInActive(ToBoolean(row[u"blnIsInActive"]));
    organization.IsInitialized(ToBoolean(row[u"blnIsInitialized"]));
    organization.IsVoucher(ToBoolean(row[u"blnIsVoucher"]));
  }
  row.Close();
}

void LoadAncestors(Session& session, fetchkit::Organization& organization) {
  const Text sql =
      Join(u"SELECT h.lngOrganizationId ", u"FROM Organization h,Organization r ",
           u"WHERE r.strOrganizationCode LIKE h.strOrganizationCode || '-%' ",
           u"AND h.lngOrganizationId <> r.lngOrganizationId ", u"AND r.lngOrganizationId = ",
           organization.OrganizationID(), u" ", u"ORDER BY h.intlevel");
  OpenedRecordset rows(ConnectionOf(session), sql, Cursor::Plain);
  if (!rows) return;
  {
    IdCollector ancestors(organization.PrevLevelOrganizationId);
    if (rows.HasRow()) {
      const std::size_t id = rows->Column(u"lngOrganizationId");
      rows->MoveLast();
      organization.ParentLevelOrganizationId(ToLong(rows->At(id)));
      for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        ancestors.Add(ToLong(rows->At(id)));
    }
  }
  rows.Close();
}

void LoadDescendants(Session& session, fetchkit::Organization& organization) {
  const Text sql =
      Join(u"SELECT r.lngOrganizationId,r.intLevel ", u"FROM Organization h,Organization r ",
           u"WHERE r.strOrganizationCode LIKE h.strOrganizationCode || '-%' ",
           u"AND h.lngOrganizationId <> r.lngOrganizationId ", u"AND h.lngOrganizationId = ",
           organization.OrganizationID(), u" ", u"ORDER BY r.intLevel,r.lngOrganizationId");
  OpenedRecordset rows(ConnectionOf(session), sql, Cursor::Plain);
  if (!rows) return;
  {
    IdCollector all(organization.NextLevelOrganizationId);
    IdCollector direct(organization.NextLevelDirectOrganizationID);
    if (rows.HasRow()) {
      const std::size_t id = rows->Column(u"lngOrganizationId");
      const std::size_t level = rows->Column(u"intLevel");
      for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t below = ToLong(rows->At(id));
        all.Add(below);
        if (ToInteger(rows->At(level)) == organization.Level() + 1) direct.Add(below);
      }
    }
  }
  rows.Close();
}

void LoadHierarchy(Session& session, fetchkit::Organization& organization) {
  Step(u"Initialize: organization tree", [&] {
    LoadAncestors(session, organization);
    LoadDescendants(session, organization);
  });
  // Whatever became of the statements, an IN list made of these must stay valid.
  for (Property<Text>* list :
       {&organization.PrevLevelOrganizationId, &organization.NextLevelOrganizationId,
        &organization.NextLevelDirectOrganizationID}) {
    if ((*list)().empty()) (*list)(u"0");
  }
}

void LoadCalendarBounds(Session& session, fetchkit::Organization& organization) {
  const Text sql = Join(u"SELECT strStartDate,strEndDate ", u"FROM AccountPeriod ",
                        u"WHERE lngOrganizationId = ", organization.OrganizationID(), u" ",
                        u"ORDER BY intYear,bytPeriod");
  OpenedRecordset rows(ConnectionOf(session), sql, Cursor::Plain);
  if (!rows) return;
  if (rows.HasRow()) {
    organization.BeginDate(ToText(rows[u"strStartDate"]));
    rows->MoveLast();
    organization.EndDate(ToText(rows[u"strEndDate"]));
  }
  rows.Close();
}

// Runs copy on the row of the table that contains the login date, if there is one. select is the
// statement up to its WHERE.
template <class Copy>
void LoadSpan(Session& session, const fetchkit::Organization& organization, TextView select,
              Copy&& copy) {
  const Text sql = Join(select, u"WHERE lngOrganizationId = ", organization.OrganizationID(), u" ",
                        u"AND strEndDate >= '", session.LoginDate, u"' ", u"AND strStartDate <= '",
                        session.LoginDate, u"'");
  OpenedRecordset row(ConnectionOf(session), sql, Cursor::Plain);
  if (!row) return;
  if (row.HasRow()) copy(row);
  row.Close();
}

void LoadCalendar(Session& session, fetchkit::Organization& organization) {
  LoadCalendarBounds(session, organization);
  LoadSpan(session, organization, u"SELECT intYear,bytPeriod FROM AccountPeriod ",
           [&](OpenedRecordset& row) {
             organization.ThisYear(ToInteger(row[u"intYear"]));
             organization.ThisPeriod(ToByte(row[u"bytPeriod"]));
           });
  // The year of these two is selected but not taken: ThisYear is the period's.
  LoadSpan(session, organization, u"SELECT intYear,bytquarter FROM AccountQuarter ",
           [&](OpenedRecordset& row) { organization.ThisQuarter(ToByte(row[u"bytQuarter"])); });
  LoadSpan(session, organization, u"SELECT intYear,bythalf FROM AccountHalf ",
           [&](OpenedRecordset& row) { organization.ThisHalfYear(ToByte(row[u"bytHalf"])); });
}

}  // namespace

std::shared_ptr<fetchkit::Organization> LoginOrganization(Session& session) {
  return Cached<fetchkit::Organization>(
      session, Join(session.AccountKey, u"$", session.LoginOrganizationId));
}

void LoadOrganization(Session& session, fetchkit::Organization& organization) {
  if (!session.OrganizationChanged) return;
  Step(u"Initialize: organization", [&] { LoadRow(session, organization); });
  LoadHierarchy(session, organization);
  Step(u"Initialize: accounting calendar", [&] { LoadCalendar(session, organization); });
}

}  // namespace MAction
}  // namespace fetchkit
