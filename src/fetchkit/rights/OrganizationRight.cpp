#include "fetchkit/rights/OrganizationRight.h"

#include <algorithm>
#include <optional>

#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/utility/CodeTables.h"

namespace fetchkit {
namespace {

Text IdList(const std::vector<std::int32_t>& ids) {
  if (ids.empty()) return u"0";
  Text list;
  for (const std::int32_t id : ids)
    AppendWith(list, u',', Piece(id).view());
  return list;
}

}  // namespace

bool OrganizationRight::Allotment::Holds(std::int32_t id) const {
  return all || std::binary_search(usable.begin(), usable.end(), id);
}

// An organization whose row was not found has the id 0, and must not pass for one without limits.
std::int32_t OrganizationRight::OrganizationId() const {
  if (!organization_ || organization_->OrganizationID() == 0)
    throw Error(ErrorKind::ObjectMissing, u"No organization: Interface.Initialize comes first.");
  return organization_->OrganizationID();
}

OrganizationRight::Allotment OrganizationRight::Read(TextView upperName) const {
  const Text sql = Join(u"SELECT lngKeyID,blnUse FROM OrgCodeAllot ", u"WHERE lngOrganizationID = ",
                        OrganizationId(), u" ", u"AND Upper(strTableName) = '", upperName, u"'");
  Session& session = MAction::SessionOfLogin();
  const StatementTrace trace(sql);
  std::optional<OpenedRecordset> rows;
  Step(
      u"OrganizationRight: allotted codes",
      [&] { rows.emplace(MAction::ConnectionOf(session), sql, Cursor::Plain, Severity::Note); },
      Severity::Note);
  Allotment allotment;
  if (!rows || !*rows) {
    // Only an account that knows no allotment is without limits. A connection that is gone fails
    // both statements, and the second "no" may be a kept one: a table that every account has must
    // answer now.
    if (MActivity::TableNameExists(session, u"OrgCodeAllot") ||
        !MActivity::TableAnswers(session, u"Organization"))
      throw Error(ErrorKind::Host, u"The allotted codes could not be read.");
    return allotment;
  }
  if (!rows->HasRowForCertain()) return allotment;
  allotment.all = false;
  Recordset& row = *rows->operator->();
  const std::size_t id = row.Column(u"lngKeyID");
  const std::size_t use = row.Column(u"blnUse");
  for (; !row.Eof(); row.MoveNext())
    if (ToBoolean(row.At(use))) allotment.usable.push_back(ToLong(row.At(id)));
  std::sort(allotment.usable.begin(), allotment.usable.end());
  return allotment;
}

const OrganizationRight::Allotment& OrganizationRight::AllotmentOf(TextView tableName) {
  Text key = UpperAscii(tableName);
  if (const auto known = allotments_.find(key); known != allotments_.end()) return known->second;
  Allotment read = Read(key);
  return allotments_.insert_or_assign(std::move(key), std::move(read)).first->second;
}

bool OrganizationRight::HaveAllCodeUseRight(TextView strTableName) {
  return Guarded(u"OrganizationRight.HaveAllCodeUseRight", false,
                 [&] { return AllotmentOf(strTableName).all; });
}

Text OrganizationRight::GetAllCodeUseRightSql(TextView strTableName) {
  return Guarded(u"OrganizationRight.GetAllCodeUseRightSql", Text(u"1=0"), [&] {
    if (AllotmentOf(strTableName).all) return Text();
    // A subquery, not the ids that are known: they may be more than an IN list holds.
    return Join(u"lng", CodeStem(strTableName), u"ID IN (SELECT lngKeyID FROM OrgCodeAllot ",
                u"WHERE lngOrganizationID = ", OrganizationId(), u" ",
                u"AND Upper(strTableName) = '", UpperAscii(strTableName), u"' ",
                u"AND blnUse = 1)");
  });
}

bool OrganizationRight::IsCanDoForActivity(TextView strTableName, std::int32_t lngKeyID) {
  return Guarded(u"OrganizationRight.IsCanDoForActivity", false,
                 [&] { return AllotmentOf(strTableName).Holds(lngKeyID); });
}

Text OrganizationRight::GetAllotItem(TextView strTableName) {
  return Guarded(u"OrganizationRight.GetAllotItem", Text(u"0"), [&] {
    const Allotment& allotment = AllotmentOf(strTableName);
    return allotment.all ? Text() : IdList(allotment.usable);
  });
}

Text OrganizationRight::GetAllotItem2(TextView strTableName, TextView strKeyIDs) {
  return Guarded(u"OrganizationRight.GetAllotItem2", Text(u"0"), [&] {
    const Allotment& allotment = AllotmentOf(strTableName);
    std::vector<std::int32_t> kept;
    for (const TextView item : Split(strKeyIDs, u","))
      if (const std::int32_t id = ToLong(item); allotment.Holds(id)) kept.push_back(id);
    return IdList(kept);
  });
}

namespace MAction {

std::shared_ptr<fetchkit::OrganizationRight> OrganizationRight(Session& session) {
  return Cached<fetchkit::OrganizationRight>(session, OrganizationKey(session));
}

}  // namespace MAction
}  // namespace fetchkit
