#include "fetchkit/session/model/Operator.h"

#include "fetchkit/session/model/RecordColumns.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit {
namespace {

constexpr RecordColumn<Operator> kColumns[] = {
    {u"Operator.lngOperatorId", Into<&Operator::OperatorId, ToLong>},
    {u"Operator.strOperatorCode", Into<&Operator::OperatorCode, ToText>},
    {u"Operator.strOperatorName", Into<&Operator::OperatorName, ToText>},
    // NotNull reads a numeric text as a number, so "00123" is kept as "123".
    {u"Nvl(Operator.strPassword,'') As strPassword",
     [](Operator& record, const Value& password) {
       record.Password(ToText(StringHelpers::NotNull(password, u"")));
     }},
    {u"Operator.lngDepartmentID", Into<&Operator::DepartmentId, ToLong>},
    {u"Operator.lngOperatorGroupID", Into<&Operator::OperatorGroupId, ToLong>},
    {u"OperatorGroup.strOperatorGroupName", Into<&Operator::OperatorGroupName, ToText>,
     kSelectedLast},
    {u"Operator.lngRoleID", Into<&Operator::RoleID, ToLong>},
    {u"Operator.strTokenSN",
     [](Operator& record, const Value& token) { record.TokenSN(ToText(token)); }},
    {u"Operator.blnUseDynPwd", Into<&Operator::UseDynPwd, ToBoolean>},
    {u"Operator.blnUseStcPwd", Into<&Operator::UseStcPwd, ToBoolean>},
    {u"Operator.blnIsSystem", Into<&Operator::IsSystem, ToBoolean>},
    {u"Operator.blnIsInActive", Into<&Operator::IsInActive, ToBoolean>},
};

}  // namespace

namespace MAction {

std::shared_ptr<fetchkit::Operator> LoginOperator(Session& session) {
  return Cached<fetchkit::Operator>(session, OperatorKey(session));
}

void LoadOperator(Session& session, fetchkit::Operator& loginOperator) {
  constexpr TextView kStep = u"Initialize: operator";
  RecordLoad& load = session.OperatorLoad;
  const auto loader = [&] {
    const Text sql =
        Join(u"SELECT ", SelectList(kColumns), u" FROM Operator,OperatorGroup,OrgOperatorAllot ",
             u"WHERE Operator.blnIsInActive = 0 ",
             u"AND Operator.lngOperatorId = OrgOperatorAllot.lngOperatorId ",
             u"AND Operator.lngOperatorGroupId = OperatorGroup.lngOperatorGroupId ",
             u"AND OrgOperatorAllot.lngOrganizationId = ", session.LoginOrganizationId, u" ",
             u"AND Operator.lngOperatorId = ", session.LoginOperatorId, u" ",
             u"ORDER BY strOperatorCode");
    LoadFirstRow(session, load, kStep, sql, kColumns, loginOperator);
  };
  LoadIfDue(load, [&] { LoadPart(load, kStep, loader); });
}

}  // namespace MAction
}  // namespace fetchkit
