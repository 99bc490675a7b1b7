#include "fetchkit/dialogs/CodeLists.h"

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/Organization.h"
#include "fetchkit/utility/CodeTables.h"

namespace fetchkit {
namespace {

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

// Calls row with the cells of each row of the statement. False when it did not open; whole: every
// row was read.
template <class Row>
bool ForEachRow(Session& session, TextView sql, bool& whole, Row&& row) {
  bool opened = false;
  whole = Step(u"frmFilter: code list", [&] {
    OpenedRecordset rows(MAction::ConnectionOf(session), sql, Cursor::Static);
    if (!rows) return;
    opened = true;
    if (!rows.HasRow()) return;
    std::vector<std::size_t> columns;
    for (const Text& name : SelectedColumns(sql))
      columns.push_back(rows->Column(name));
    for (; !rows->Eof(); rows->MoveNext()) {
      std::vector<Text> cells;
      cells.reserve(columns.size());
      for (const std::size_t column : columns)
        cells.push_back(ToTextOrEmpty(rows->At(column)));
      row(cells);
    }
  });
  whole = whole && opened;
  return opened;
}

}  // namespace

CodeListStatement CodeListStatementOf(Session& session, TextView strKeyField) {
  if (const CodeTable* row = FindCodeTable(strKeyField)) {
    const TextView table = row->table;
    const TextView stem = CodeStem(table);
    const Text restrictions = row->hasRights ? Restrictions(session, table) : Text();
    switch (row->form) {
      case CodeTable::Form::Assigned:
        return {Join(u"SELECT lng", stem, u"ID,str", stem, u"Code,str", stem, u"Name From ", table,
                     u" WHERE blnIsInActive=0 AND str", stem, u"Code<>' ' ", restrictions,
                     u" ORDER BY str", stem, u"Code ASC"),
                {}};
      case CodeTable::Form::Plain:
        return {Join(u"SELECT lng", stem, u"ID,str", stem, u"Code,str", stem, u"Name FROM ", table,
                     u" WHERE blnIsInActive = 0", restrictions, u" Order By str", stem, u"Code"),
                {}};
      case CodeTable::Form::WithoutCode:
        return {Join(u"SELECT lng", stem, u"ID,str", stem, u"Name FROM ", table,
                     u" WHERE blnIsInActive = 0 Order By lng", stem, u"ID"),
                {}};
      case CodeTable::Form::Distinct:
        return {Join(u"SELECT Distinct lng", stem, u"ID,str", stem, u"Code,str", stem,
                     u"Name FROM ", table, u" Order By str", stem, u"Code"),
                {}};
    }
  }
  if (EqualFolded(strKeyField, u"ORGANIZATION")) {
    const TextView code = session.LoginOrganizationCode;
    return {Join(u" SELECT lngOrganizationID,strOrganizationCode, strOrganizationName FROM "
                 u"Organization WHERE 1=1 AND (strOrganizationCode='",
                 code, u"' OR strOrganizationCode like '", code,
                 u"-%')  Order by Organization.strOrganizationCode "),
            {}};
  }
  const TextView k = strKeyField;
  CodeListStatement list{
      Join(u"SELECT T1.lng", k, u"ID,str", k, u"Code,str", k, u"Name FROM ", k,
           u" T1 WHERE T1.blnIsInActive = 0 ORDER BY str", k, u"Code"),
      {Join(u" SELECT lng", k, u"ID,str", k, u"Code, str", k, u"Name FROM ", k)}};
  const Text keyword = UpperAscii(k);
  const TextView stem = CodeStem(keyword);
  if (stem != keyword)
    list.fallbacks.push_back(
        Join(u"SELECT lng", stem, u"ID,str", stem, u"Code,str", stem, u"Name FROM ", k));
  return list;
}

Text EnumListStatementOf(Session& session, TextView caption) {
  if (IsOperatorCaption(caption))
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

CodeList ReadCodeList(Session& session, TextView strKeyField) {
  CodeList list;
  const CodeListStatement statement = CodeListStatementOf(session, strKeyField);
  const auto addRow = [&](std::vector<Text>& row) {
    if (row.size() == 2) row.insert(row.begin() + 1, Text());
    for (Text& cell : row)
      list.cells.push_back(std::move(cell));
  };
  bool opened = ForEachRow(session, statement.sql, list.isWhole, addRow);
  for (auto next = statement.fallbacks.begin(); !opened && next != statement.fallbacks.end();
       ++next)
    opened = ForEachRow(session, *next, list.isWhole, addRow);
  return list;
}

CodeList ReadEnumList(Session& session, TextView caption) {
  CodeList list;
  ForEachRow(session, EnumListStatementOf(session, caption), list.isWhole,
             [&](std::vector<Text>& row) { list.cells.push_back(std::move(row.front())); });
  return list;
}

std::vector<Text> CodeListCache::ItemsOf(Session& session, const ListFieldType& field,
                                         bool areCodes) {
  auto& known = areCodes ? codes_ : values_;
  const Text key = areCodes ? UpperAscii(field.strKeyField) : field.strListFieldDesc;
  if (const auto found = known.find(key); found != known.end()) return found->second;
  CodeList list = areCodes ? ReadCodeList(session, field.strKeyField)
                           : ReadEnumList(session, field.strListFieldDesc);
  if (list.isWhole) known[key] = list.cells;
  return std::move(list.cells);
}

void CodeListCache::Clear() {
  codes_.clear();
  values_.clear();
}

}  // namespace fetchkit
