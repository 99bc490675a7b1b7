#include "fetchkit/dialogs/CodeLists.h"

#include <algorithm>
#include <iterator>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/Organization.h"

namespace fetchkit {
namespace {

// A table with a statement of its own; the rights of the table stand between its two parts.
struct CodeTable {
  TextView keyword;  // upper case
  TextView table;    // whose rights restrict the list; empty for none
  TextView select;
  TextView order;
};

constexpr CodeTable kTables[] = {
    {u"DEPARTMENT", u"Department",
     u"SELECT lngDepartmentID,strDepartmentCode,strDepartmentName From Department WHERE "
     u"blnIsInActive=0 AND strDepartmentCode<>' ' ",
     u" ORDER BY strDepartmentCode ASC"},
    {u"CUSTOMERTYPE", u"CustomType",
     u"SELECT lngCustomTypeID,strCustomTypeCode,strCustomTypeName From CustomType WHERE "
     u"blnIsInActive=0 AND strCustomTypeCode<>' ' ",
     u" ORDER BY strCustomTypeCode ASC"},
    {u"CLASS1", u"Class1",
     u"SELECT lngClassID,strClassCode,strClassName From Class1 WHERE blnIsInActive=0 AND "
     u"strClassCode<>' ' ",
     u" ORDER BY strClassCode ASC"},
    {u"CLASS2", u"Class2",
     u"SELECT lngClassID,strClassCode,strClassName From Class2 WHERE blnIsInActive=0 AND "
     u"strClassCode<>' ' ",
     u" ORDER BY strClassCode ASC"},
    {u"FUNCTIONAL", u"Functional",
     u"SELECT lngFunctionalID,strFunctionalCode,strFunctionalName From Functional WHERE "
     u"blnIsInActive=0 AND strFunctionalCode<>' ' ",
     u" ORDER BY strFunctionalCode ASC"},
    {u"GOVERNMENTECO", u"GovernmentECO",
     u"SELECT lngGovernmentECOID,strGovernmentECOCode,strGovernmentECOName From GovernmentECO "
     u"WHERE blnIsInActive=0 AND strGovernmentECOCode<>' ' ",
     u" ORDER BY strGovernmentECOCode ASC"},
    {u"DEPARTMENTECO", u"DepartmentECO",
     u"SELECT lngDepartmentECOID,strDepartmentECOCode,strDepartmentECOName From DepartmentECO "
     u"WHERE blnIsInActive=0 AND strDepartmentECOCode<>' ' ",
     u" ORDER BY strDepartmentECOCode ASC"},
    {u"OPERATOR", u"",
     u"SELECT Distinct lngOperatorID,strOperatorCode,strOperatorName FROM Operator",
     u" Order By strOperatorCode"},
    {u"FBPERIOD", u"",
     u"SELECT lngFBPeriodID,strFBPeriodName FROM FBPeriod WHERE blnIsInActive = 0",
     u" Order By lngFBPeriodID"},
    {u"RTPERIOD", u"",
     u"SELECT lngRTPeriodID,strRTPeriodName FROM RTPeriod WHERE blnIsInActive = 0",
     u" Order By lngRTPeriodID"},
    {u"CURRENCYS", u"",
     u"SELECT lngCurrencyID,strCurrencyCode,strCurrencyName FROM Currencys WHERE blnIsInActive = 0",
     u" Order By strCurrencyCode"},
};

// The budget and report tables name their columns after themselves.
struct NamedTable {
  TextView name;
  bool restricted;
};

constexpr NamedTable kNamedTables[] = {
    {u"FBDutyCenter", true}, {u"FBScheme", true},  {u"FBType", true},    {u"FBSystem", true},
    {u"FBTarget", true},     {u"FBItem", true},    {u"RTScheme", false}, {u"RTType", false},
    {u"RTSystem", false},    {u"RTTarget", false}, {u"RTItem", false},   {u"RTDutyCenter", false},
};

constexpr TextView kOperatorCaptions[] = {
    u"操作员",       u"制单",           u"制单人",         u"复核",   u"记账",     u"执行",
    u"执行者",       u"建表人",         u"建卡人",         u"撰写人", u"提醒对象", u"审核",
    u"库管",         u"财务",           u"代理人",         u"授权人", u"核销人",   u"单据制单人",
    u"发票制单人",   u"加工出库制单人", u"加工入库制单人", u"计划员", u"锁定人",   u"抵减凭证制单",
    u"抵减凭证复核", u"抵减凭证记账",   u"修改人",         u"启用人", u"停用人",   u"建立人",
    u"汇报人",       u"最后修改人",     u"养护人",         u"出纳",   u"审批人",   u"复核操作员",
};

// Accounts of this type keep their account types in a view.
constexpr int kViewedAccountType = 16;

Text Restrictions(Session& session, TextView table) {
  Text sql;
  for (const Text& condition : {MAction::OperatorRight(session)->GetUserQueryRight(table),
                                MAction::OrganizationRight(session)->GetAllCodeUseRightSql(table)})
    if (!condition.empty()) sql.append(u" And ").append(condition);
  return sql;
}

// The columns that one of the statements here selects, in order.
std::vector<Text> SelectedColumns(TextView sql) {
  constexpr TextView kSelect = u"SELECT ";
  constexpr TextView kDistinct = u"DISTINCT ";
  constexpr TextView kAlias = u"T1.";
  sql = TrimBlanks(sql.substr(0, FindFolded(sql, u" FROM ")));
  sql.remove_prefix(kSelect.size());
  if (EqualFolded(sql.substr(0, kDistinct.size()), kDistinct)) sql.remove_prefix(kDistinct.size());
  std::vector<Text> columns;
  for (TextView column : Split(sql, u",")) {
    column = TrimBlanks(column);
    if (column.starts_with(kAlias)) column.remove_prefix(kAlias.size());
    columns.emplace_back(column);
  }
  return columns;
}

// Calls row with the cells of each row of the statement. False when it did not open.
template <class Row>
bool ForEachRow(Session& session, TextView sql, Row&& row) {
  bool opened = false;
  Step(u"frmFilter: code list", [&] {
    OpenedRecordset rows(MAction::ConnectionOf(session), sql, Cursor::Static);
    if (!rows) return;
    opened = true;
    if (!rows.HasRow()) return;
    std::vector<std::size_t> columns;
    for (const Text& name : SelectedColumns(sql))
      columns.push_back(rows->Column(name));
    for (; !rows->Eof(); rows->MoveNext()) {
      std::vector<Text> cells;
      for (const std::size_t column : columns)
        cells.push_back(ToTextOrEmpty(rows->At(column)));
      row(cells);
    }
  });
  return opened;
}

}  // namespace

CodeListStatement CodeListStatementOf(Session& session, TextView strKeyField) {
  const Text keyword = UpperAscii(strKeyField);
  for (const CodeTable& table : kTables)
    if (table.keyword == keyword)
      return {Join(table.select, table.table.empty() ? Text() : Restrictions(session, table.table),
                   table.order),
              {}};
  for (const auto& [name, restricted] : kNamedTables)
    if (EqualFolded(name, keyword))
      return {Join(u"SELECT lng", name, u"ID,str", name, u"Code,str", name, u"Name FROM ", name,
                   u" WHERE blnIsInActive = 0", restricted ? Restrictions(session, name) : Text(),
                   u" Order By str", name, u"Code"),
              {}};
  if (keyword == u"ORGANIZATION") {
    const TextView code = session.LoginOrganizationCode;
    return {Join(u" SELECT lngOrganizationID,strOrganizationCode, strOrganizationName FROM "
                 u"Organization WHERE 1=1 AND (strOrganizationCode='",
                 code, u"' OR strOrganizationCode like '", code,
                 u"-%')  Order by Organization.strOrganizationCode "),
            {}};
  }
  const TextView k = strKeyField;
  return {Join(u"SELECT T1.lng", k, u"ID,str", k, u"Code,str", k, u"Name FROM ", k,
               u" T1 WHERE T1.blnIsInActive = 0 ORDER BY str", k, u"Code"),
          Join(u" SELECT lng", k, u"ID,str", k, u"Code, str", k, u"Name FROM ", k)};
}

Text EnumListStatementOf(Session& session, TextView caption) {
  if (std::find(std::begin(kOperatorCaptions), std::end(kOperatorCaptions), caption) !=
      std::end(kOperatorCaptions))
    return Join(
        u"SELECT distinct strOperatorName FROM Operator,OrgOperatorAllot Where "
        u"OrgOperatorAllot.lngOperatorID = Operator.lngOperatorID And "
        u"OrgOperatorAllot.lngOrganizationID IN (",
        MAction::LoginOrganization(session)->LowerOrganizationId(), u") ORDER BY 1");
  if (caption == u"操作员编码") return u"SELECT distinct strOperatorCode FROM Operator ORDER BY 1";
  if (caption == u"科目类型" || caption == u"科目类别")
    return MAction::Business(session)->AccountType() == kViewedAccountType
               ? u"SELECT distinct strAccountTypeName FROM ACCOUNTTYPEVIEW AccountType order by 1"
               : u"SELECT distinct strAccountTypeName FROM AccountType order by 1";
  return Join(
      u"SELECT strEnumNumber FROM EnumTable WHERE "
      u"LTrim( Rtrim(Enumtable.strViewFieldDesc) )='",
      caption, u"' order by 1");
}

std::vector<Text> ReadCodeList(Session& session, TextView strKeyField) {
  std::vector<Text> cells;
  const CodeListStatement statement = CodeListStatementOf(session, strKeyField);
  const auto addRow = [&](std::vector<Text>& row) {
    if (row.size() == 2) row.insert(row.begin() + 1, Text());
    for (Text& cell : row)
      cells.push_back(std::move(cell));
  };
  if (!ForEachRow(session, statement.sql, addRow) && !statement.fallback.empty())
    ForEachRow(session, statement.fallback, addRow);
  return cells;
}

std::vector<Text> ReadEnumList(Session& session, TextView caption) {
  std::vector<Text> values;
  ForEachRow(session, EnumListStatementOf(session, caption),
             [&](std::vector<Text>& row) { values.push_back(std::move(row.front())); });
  return values;
}

}  // namespace fetchkit
