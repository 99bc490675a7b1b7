#include "fetchkit/session/model/Organization.h"

#include <utility>

#include "fetchkit/base/Numbers.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/RecordColumns.h"

namespace fetchkit {
namespace {

constexpr RecordColumn<Organization> kColumns[] = {
    {u"lngOrganizationID", Into<&Organization::OrganizationID, ToLong>},
    {u"strOrganizationCode", Into<&Organization::OrganizationCode, ToText>},
    {u"strOrganizationName", Into<&Organization::OrganizationName, ToText>},
    {u"strFullName", Into<&Organization::OrganizationFullName, ToText>},
    {u"intlevel", Into<&Organization::Level, ToInteger>},
    {u"strDate", Into<&Organization::CreateDate, ToDateText>},
    {u"strStartDate", Into<&Organization::StartDate, ToDateText>},
    {u"blnIsBase", Into<&Organization::IsBase, ToBoolean>},
    {u"blnIsCache", Into<&Organization::IsCache, ToBoolean>},
    {u"blnIsCenter", Into<&Organization::IsCenter, ToBoolean>},
    {u"blnIsControl", Into<&Organization::IsControl, ToBoolean>},
    {u"blnIsDetail", Into<&Organization::IsDetail, ToBoolean>},
    {u"blnIsInActive", Into<&Organization::IsInActive, ToBoolean>},
    {u"blnIsInitialized", Into<&Organization::IsInitialized, ToBoolean>},
    {u"blnIsVoucher", Into<&Organization::IsVoucher, ToBoolean>},
};

}  // namespace

std::uint8_t Organization::OrganizationProperty() const {
  return Guarded(
      u"Organization.OrganizationProperty", std::uint8_t{0},
      [] {
        const auto business = MAction::Business(MAction::CurrentSession());
        return business->GroupDBType() == 1 && business->AccountProperty() == 1
                   ? std::uint8_t{2}
                   : business->AccountProperty();
      },
      LastError::Kept);
}

std::int16_t Organization::BeginYear() const {
  if (!IsNumericText(beginYear_))
    throw ConvertError(ErrorKind::TypeMismatch,
                       u"Organization.BeginYear is never filled; BeginDate tells when it begins.");
  return ToInteger(beginYear_);
}

Text Organization::LowerOrganizationId() const {
  return Guarded(
      u"Organization.LowerOrganizationId", Text(),
      [&] {
        const Text& below = NextLevelOrganizationId();
        return below.empty() ? Join(OrganizationID()) : Join(OrganizationID(), u",", below);
      },
      LastError::Kept);
}

namespace MAction {
namespace {

constexpr TextView kRowStep = u"Initialize: organization";
constexpr TextView kTreeStep = u"Initialize: organization tree";
constexpr TextView kCalendarStep = u"Initialize: accounting calendar";

// Collects ids into a list property, which is emptied at once and holds what was read when the
// collector goes, also on an error in mid-rows.
class IdCollector {
 public:
  explicit IdCollector(Property<Text>& target) : target_(target) { target_({}); }
  ~IdCollector() { target_(std::move(ids_)); }
  IdCollector(const IdCollector&) = delete;
  IdCollector& operator=(const IdCollector&) = delete;

  void Add(std::int32_t id) { AppendWith(ids_, u',', Piece(id).view()); }

 private:
  Property<Text>& target_;
  Text ids_;
};

void LoadRow(Session& session, fetchkit::Organization& organization) {
  const Text sql =
      Join(u"SELECT ", SelectList(kColumns), u" FROM Organization ", u"WHERE blnIsInActive = 0 ",
           u"AND blnIsInitialized = 1 ", u"AND lngOrganizationID = ", session.LoginOrganizationId,
           u" ", u"ORDER BY strOrganizationCode");
  LoadFirstRow(session, session.OrganizationLoad, kRowStep, sql, kColumns, organization);
}

void LoadAncestors(Session& session, fetchkit::Organization& organization) {
  const Text sql =
      Join(u"SELECT h.lngOrganizationId ", u"FROM Organization h,Organization r ",
           u"WHERE r.strOrganizationCode LIKE h.strOrganizationCode || '-%' ",
           u"AND h.lngOrganizationId <> r.lngOrganizationId ", u"AND r.lngOrganizationId = ",
           organization.OrganizationID(), u" ", u"ORDER BY h.intlevel");
  LoaderRows rows(session, session.OrganizationLoad, kTreeStep, sql);
  if (!rows) return;
  {
    IdCollector ancestors(organization.PrevLevelOrganizationId);
    if (rows.HasRow()) {
      const std::size_t id = rows.Column(u"lngOrganizationId");
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
  LoaderRows rows(session, session.OrganizationLoad, kTreeStep, sql);
  if (!rows) return;
  {
    IdCollector all(organization.NextLevelOrganizationId);
    IdCollector direct(organization.NextLevelDirectOrganizationID);
    if (rows.HasRow()) {
      const std::size_t id = rows.Column(u"lngOrganizationId");
      const std::size_t level = rows.Column(u"intLevel");
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
  LoadPart(session.OrganizationLoad, kTreeStep, [&] {
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

void LoadCalendar(Session& session, fetchkit::Organization& organization) {
  const auto withFirstRow = [&](TextView sql, auto&& use) {
    WithFirstRow(session, session.OrganizationLoad, kCalendarStep, sql, use);
  };
  const std::int32_t id = organization.OrganizationID();
  const Text bounds = Join(u"SELECT strStartDate,strEndDate ", u"FROM AccountPeriod ",
                           u"WHERE lngOrganizationId = ", id, u" ", u"ORDER BY intYear,bytPeriod");
  withFirstRow(bounds, [&](LoaderRows& rows) {
    organization.BeginDate(ToText(rows[u"strStartDate"]));
    rows->MoveLast();
    organization.EndDate(ToText(rows[u"strEndDate"]));
  });
  const Text atLogin =
      Join(u"WHERE lngOrganizationId = ", id, u" ", u"AND strEndDate >= '", session.LoginDate,
           u"' ", u"AND strStartDate <= '", session.LoginDate, u"'");
  withFirstRow(Join(u"SELECT intYear,bytPeriod FROM AccountPeriod ", atLogin),
               [&](LoaderRows& row) {
                 organization.ThisYear(ToInteger(row[u"intYear"]));
                 organization.ThisPeriod(ToByte(row[u"bytPeriod"]));
               });
  // The year of these two is selected but not taken: ThisYear is the period's.
  withFirstRow(Join(u"SELECT intYear,bytquarter FROM AccountQuarter ", atLogin),
               [&](LoaderRows& row) { organization.ThisQuarter(ToByte(row[u"bytQuarter"])); });
  withFirstRow(Join(u"SELECT intYear,bythalf FROM AccountHalf ", atLogin),
               [&](LoaderRows& row) { organization.ThisHalfYear(ToByte(row[u"bytHalf"])); });
}

}  // namespace

std::shared_ptr<fetchkit::Organization> LoginOrganization(Session& session) {
  return Cached<fetchkit::Organization>(session, OrganizationKey(session));
}

void LoadOrganization(Session& session, fetchkit::Organization& organization) {
  RecordLoad& load = session.OrganizationLoad;
  LoadIfDue(load, [&] {
    LoadPart(load, kRowStep, [&] { LoadRow(session, organization); });
    LoadHierarchy(session, organization);
    LoadPart(load, kCalendarStep, [&] { LoadCalendar(session, organization); });
  });
}

}  // namespace MAction
}  // namespace fetchkit
