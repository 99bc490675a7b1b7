#include "fetchkit/session/model/Operator.h"

#include "fetchkit/base/Guard.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit::MAction {
namespace {

Text StatementOf(const Session& session) {
  return Join(
      u"SELECT Operator.lngOperatorId,Operator.strOperatorCode,Operator.strOperatorName,"
      u"Nvl(Operator.strPassword,'') As strPassword,",
      u"Operator.lngDepartmentID,Operator.lngOperatorGroupID,Operator.lngRoleID,"
      u"Operator.strTokenSN,",
      u"Operator.blnUseDynPwd,Operator.blnUseStcPwd,Operator.blnIsSystem,Operator.blnIsInActive,",
      u"OperatorGroup.strOperatorGroupName ", u"FROM Operator,OperatorGroup,OrgOperatorAllot ",
      u"WHERE Operator.blnIsInActive = 0 ",
      u"AND Operator.lngOperatorId = OrgOperatorAllot.lngOperatorId ",
      u"AND Operator.lngOperatorGroupId = OperatorGroup.lngOperatorGroupId ",
      u"AND OrgOperatorAllot.lngOrganizationId = ", session.LoginOrganizationId, u" ",
      u"AND Operator.lngOperatorId = ", session.LoginOperatorId, u" ORDER BY strOperatorCode");
}

}  // namespace

std::shared_ptr<fetchkit::Operator> LoginOperator(Session& session) {
  return Cached<fetchkit::Operator>(
      session,
      Join(session.AccountKey, u"$", session.LoginOrganizationId, u"$", session.LoginOperatorId));
}

void LoadOperator(Session& session, fetchkit::Operator& loginOperator) {
  if (!session.OperatorChanged) return;
  Step(u"Initialize: operator", [&] {
    OpenedRecordset row(ConnectionOf(session), StatementOf(session), Cursor::Plain);
    if (!row) return;
    if (row.HasRow()) {
      loginOperator.OperatorId(ToLong(row[u"lngOperatorId"]));
      loginOperator.OperatorCode(ToText(row[u"strOperatorCode"]));
      loginOperator.OperatorName(ToText(row[u"strOperatorName"]));
      // NotNull reads a numeric text as a number, so "00123" is kept as "123".
      loginOperator.Password(ToText(MUtility::NotNull(row[u"strPassword"], u"")));
      loginOperator.DepartmentId(ToLong(row[u"lngDepartmentID"]));
      loginOperator.OperatorGroupId(ToLong(row[u"lngOperatorGroupID"]));
      loginOperator.OperatorGroupName(ToText(row[u"strOperatorGroupName"]));
      loginOperator.RoleID(ToLong(row[u"lngRoleID"]));
      loginOperator.TokenSN(ToText(row[u"strTokenSN"]));
      loginOperator.UseDynPwd(ToBoolean(row[u"blnUseDynPwd"]));
      loginOperator.UseStcPwd(ToBoolean(row[u"blnUseStcPwd"]));
      loginOperator.IsSystem(ToBoolean(row[u"blnIsSystem"]));
      loginOperator.IsInActive(ToBoolean(row[u"blnIsInActive"]));
    }
    row.Close();
  });
}

}  // namespace fetchkit::MAction
