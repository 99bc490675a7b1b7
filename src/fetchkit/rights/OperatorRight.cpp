#include "fetchkit/rights/OperatorRight.h"

#include <algorithm>

#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/utility/CodeTables.h"

namespace fetchkit {
namespace {

// Whether the account's database assigns right groups to operators per organization.
bool AssignsPerOrganization(Session& session) {
  return MActivity::TableFieldExists(session, u"OperatorRight", u"lngOrganizationID");
}

}  // namespace

const Operator& OperatorRight::LoginOperator() const {
  if (!operator_)
    throw Error(ErrorKind::ObjectMissing, u"No operator: Interface.Initialize comes first.");
  return *operator_;
}

Text OperatorRight::ReadRights(Session& session) const {
  const std::int32_t operatorId = LoginOperator().OperatorId();
  const std::int32_t organizationId = LoginOperator().OrganizationId();
  constexpr TextView kSelect = u"SELECT Distinct RightGroupDetail.lngRightID As lngRightID ";
  constexpr TextView kFrom = u"FROM Right,RightGroupDetail,OperatorRight,RightGroup ";
  // A right group of organization 0 counts only where the assignment names this organization; a
  // group of this organization counts wherever it was assigned.
  const Text sql =
      AssignsPerOrganization(session)
          ? Join(kSelect, kFrom, u"WHERE (RightGroupDetail.lngRightID = Right.lngRightID) ",
                 u"AND OperatorRight.lngRightGroupID = RightGroupDetail.lngRightGroupID ",
                 u"AND OperatorRight.lngOperatorID = ", operatorId, u" ",
                 u"AND ((RightGroup.lngOrganizationID = 0 AND OperatorRight.lngOrganizationID = ",
                 organizationId, u") ", u"OR RightGroup.lngOrganizationID = ", organizationId,
                 u") ", u"AND RightGroupDetail.lngRightGroupID = RightGroup.lngRightGroupID")
          : Join(kSelect, kFrom, u"WHERE (RightGroupDetail.lngRightID(+) = Right.lngRightID) ",
                 u"AND OperatorRight.lngRightGroupID(+) = RightGroupDetail.lngRightGroupID ",
                 u"AND OperatorRight.lngOperatorID = ", operatorId, u" ",
                 u"AND RightGroup.lngOrganizationId = ", organizationId, u" ",
                 u"AND RightGroupDetail.lngRightGroupId = RightGroup.lngRightGroupId");
  OpenedRecordset rows(MAction::ConnectionOf(session), sql, Cursor::Plain);
  Text rights;
  if (!rows.HasRowForCertain()) return rights;
  const std::size_t id = rows->Column(u"lngRightID");
  for (; !rows->Eof(); rows->MoveNext())
    rights.append(u",").append(ToTextOrEmpty(rows->At(id)));
  return rights;
}

bool OperatorRight::UserRight(TextView RightIDs) {
  return Guarded(u"OperatorRight.UserRight", false, [&] {
    if (!rightsLoaded_) {
      // Set first: rights that could not be read are not asked for again.
      rightsLoaded_ = true;
      rights_ = ReadRights(MAction::SessionOfLogin());
    }
    if (rights_.empty()) return false;
    const auto wanted = Split(RightIDs, u",");
    return std::all_of(wanted.begin(), wanted.end(), [&](TextView id) {
      return FindText(rights_, Join(u",", id)) != TextView::npos;
    });
  });
}

// Nothing when the database did not answer.
std::optional<bool> OperatorRight::ReadAllRight(TextView strCode, TextView use) const {
  const Text sql = Join(u"SELECT blnAll", strCode, use, u" As blnHaveRight FROM OperatorAllRight ",
                        u"WHERE lngOperatorID = ", LoginOperator().OperatorId(), u" ",
                        u"AND lngOrganizationID = ", LoginOperator().OrganizationId());
  OpenedRecordset row(MAction::ConnectionOf(MAction::SessionOfLogin()), sql, Cursor::Plain);
  if (!row) return std::nullopt;
  return row.HasRowForCertain() && ToDouble(row[u"blnHaveRight"]) == 1;
}

bool OperatorRight::HaveAllCodeQueryRight(TextView strCode) const {
  return Guarded(u"OperatorRight.HaveAllCodeQueryRight", false,
                 [&] { return ReadAllRight(strCode, u"").value_or(false); });
}

bool OperatorRight::HaveAllCodeUseRight(TextView strCode) const {
  return Guarded(u"OperatorRight.HaveAllCodeUseRight", false,
                 [&] { return ReadAllRight(strCode, u"Use").value_or(false); });
}

// A subquery, not a list of ids: a group may reach more codes than an IN list holds.
Text OperatorRight::QueryCondition(TextView tableName) const {
  const std::int32_t organizationId = LoginOperator().OrganizationId();
  const Text upperName = UpperAscii(tableName);
  const Text groups =
      AssignsPerOrganization(MAction::SessionOfLogin())
          ? Join(u"((RightGroup.lngOrganizationID = 0 AND OperatorRight.lngOrganizationID = ",
                 organizationId, u") OR RightGroup.lngOrganizationID = ", organizationId, u")")
          : Join(u"RightGroup.lngOrganizationID = ", organizationId);
  return Join(
      u"lng", CodeStem(tableName), u"ID IN (SELECT GroupToRightDetail.lngKeyID ",
      u"FROM GroupToRightDetail,SelGroupRight,OperatorRight,RightGroup ",
      u"WHERE Upper(GroupToRightDetail.strTableName) = '", upperName, u"' ",
      u"AND (GroupToRightDetail.lngOrganizationID = 0 OR GroupToRightDetail.lngOrganizationID = ",
      organizationId, u") ", u"AND SelGroupRight.lngRightGroupID = ",
      u"GroupToRightDetail.lngRightGroupID ", u"AND Upper(SelGroupRight.strTableName) = '",
      upperName, u"' ", u"AND SelGroupRight.blnQuery = 1 ",
      u"AND OperatorRight.lngRightGroupID = GroupToRightDetail.lngRightGroupID ",
      u"AND OperatorRight.lngOperatorID = ", LoginOperator().OperatorId(), u" ",
      u"AND RightGroup.lngRightGroupID = GroupToRightDetail.lngRightGroupID ", u"AND ", groups,
      u")");
}

Text OperatorRight::GetUserQueryRight(TextView strTableName) {
  return Guarded(u"OperatorRight.GetUserQueryRight", Text(u"1=0"), [&] {
    Text key = UpperAscii(strTableName);
    if (const auto known = queryRights_.find(key); known != queryRights_.end())
      return known->second;
    std::optional<bool> mayQueryAll;
    Step(u"OperatorRight.GetUserQueryRight: all codes",
         [&] { mayQueryAll = ReadAllRight(strTableName, u""); });
    Text condition = mayQueryAll.value_or(false) ? Text() : QueryCondition(strTableName);
    // A database that did not answer may do so the next time.
    if (mayQueryAll) queryRights_.insert_or_assign(std::move(key), condition);
    return condition;
  });
}

void OperatorRight::Clear() {
  Step(u"OperatorRight.Clear", [&] { queryRights_.clear(); });
}

namespace MAction {

std::shared_ptr<fetchkit::OperatorRight> OperatorRight(Session& session) {
  return Cached<fetchkit::OperatorRight>(session, OperatorKey(session));
}

}  // namespace MAction
}  // namespace fetchkit
