#include "fetchkit/listset/ViewLoading.h"

#include <optional>
#include <unordered_set>
#include <utility>

#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit::MListSet {
namespace {

Text TextOf(const Value& value) {
  return ToText(MUtility::NotNull(value, u""));
}

// A Boolean counts as -1 or 0 here: the text "True" would read as the number 0.
Value NumberOf(const Value& value) {
  if (value.Is<bool>()) return ToLong(value);
  return MUtility::NotNull(value, std::int32_t{0});
}

bool FlagOf(const Value& value) {
  return ToBoolean(NumberOf(value));
}

void RestrictToOrganization(const Session& session, ListType& list) {
  if (FindFolded(list.strListFrom, u"ORGANIZATIONAUX") == TextView::npos) return;
  const Text& code = session.LoginOrganizationCode;
  list.strListWhere.append(
      session.OrganizationIsDetail
          ? Join(u" And OrganizationAux.lngOrganizationID= ", session.LoginOrganizationId)
          : Join(u" And (OrganizationAux.strOrganizationCode='", code,
                 u"' OR OrganizationAux.strOrganizationCode like '", code, u"-%')"));
}

Text FieldStatement(const Session& session, std::int32_t viewId) {
  const Text list =
      Join(u" and list.lngviewid = ", viewId, u" and list.lngoperatorid = ",
           session.LoginOperatorId, u" and list.lngorganizationid = ", session.LoginOrganizationId);
  return Join(
      u"select nvl(lf.lnglistid, 0) as lnglistid, \n"
      u" vf.*,\n"
      u"lf.Lnglistid,lf.Lnglistfieldid,lf.Lnglistfieldno,lf.Strlistfielddesc,lf.Lngdisplaywidth,"
      u"lf.Bytsort,lf.Blnischoosed,\n"
      u"lc.Strpath,lc.Blnhavefathernode,\n"
      u"lc.Strstringop,lc.Strstring1,lc.Strstring2,\n"
      u"lc.Strdateop,lc.Dtmdate1,lc.Dtmdate2,\n"
      u"lc.Strdoubleop,lc.Dbldouble1,lc.Dbldouble2,\n"
      u"lc.Blnismulicond,lc.Blnboolean,lc.Strothtablename,\n"
      u"Lmc.Strcodeid,Lmc.Strkeyname,Lmc.Blniscodetype,\n"
      u"decode(lngListFieldNO, null, vf.lngviewfieldno, lngListFieldNO) as lngListFieldNO1,\n"
      u"decode(strListFieldDesc, null, vf.strviewfielddesc, strListFieldDesc) as "
      u"strListFieldDesc1,\n"
      u"nvl(lf.lngdisplaywidth, 0) as lngdisplaywidth,nvl(bytSort, 0) as bytSort1,\n"
      u"decode(blnIsChoosed,null,0,blnIsChoosed) + vf.blnismust + vf.blnisprep + vf.blnisfixed as "
      u"blnIsChoosed1 \n"
      u" from viewfield vf, \n"
      u" (select listfield.* \n"
      u" from list, listfield \n"
      u" where listfield.lnglistid = list.lnglistid \n",
      list,
      u") lf, \n"
      u" (select listcond.* \n"
      u" from list, listcond \n"
      u" where listcond.lnglistid = list.lnglistid \n",
      list,
      u" ) lc, \n"
      u" listmultiidcond lmc \n"
      u" where vf.lngviewid = ",
      viewId,
      u" and vf.lngviewfieldid = lf.lngviewfieldid(+) \n"
      u" and vf.lngviewfieldid = lc.lngviewfieldid(+) \n"
      u" and lc.lnglistid = lmc.lnglistid(+) \n"
      u" and lc.strpath = lmc.strpath(+) \n"
      u" and vf.strViewFieldDesc = lc.strpath(+) \n"
      u" Order by -vf.blnisfixed,decode(lngListFieldNO, null, vf.lngviewfieldno, lngListFieldNO)");
}

// The columns of the field statement, each looked up once.
class FieldRows {
 public:
  explicit FieldRows(Recordset& rows) : rows_(rows) {}

  std::int32_t ViewFieldId() { return ToLong(NumberOf(rows_.At(viewFieldId_))); }
  bool HasCondition() { return !Stored(conditionPath_).empty(); }

  ListFieldType Field() {
    ListFieldType field;
    field.lngViewFieldID = ViewFieldId();
    field.lngListFieldID = ToLong(Number(listFieldId_));
    field.strBiaTableName = TextOf(rows_.At(biaTableName_));
    field.lngListFieldNO = ToLong(Number(listFieldNo_));
    field.lngViewFieldNO = ToLong(Number(viewFieldNo_));
    field.bytHead = ToByte(Number(head_));
    // The view's caption, not the one that the list has saved.
    field.strListFieldDesc = TextOf(rows_.At(description_));
    field.bytFieldSize = ToByte(Number(fieldSize_));
    field.blnIsMust = FlagOf(rows_.At(isMust_));
    field.blnIsPrep = FlagOf(rows_.At(isPrep_));
    field.strKeyField = TextOf(rows_.At(keyField_));
    field.bytPrepOrder = ToByte(Number(prepOrder_));
    field.strTableName = TextOf(rows_.At(tableName_));
    field.strFieldName = TextOf(rows_.At(fieldName_));
    field.strFieldType = TextOf(rows_.At(fieldType_));
    field.bytFieldDec = ToByte(Number(fieldDec_));
    field.blnIsFilter = FlagOf(rows_.At(isFilter_));
    field.blnIsChoose = FlagOf(rows_.At(isChoose_));
    field.blnIsFixed = FlagOf(rows_.At(isFixed_));
    field.blnIsFind = FlagOf(rows_.At(isFind_));
    field.blnIsNotList = FlagOf(rows_.At(isNotList_));
    field.blnIsFilt = FlagOf(rows_.At(isFilt_));
    field.bytFormat = ToByte(Number(format_));
    field.blnNotZero = FlagOf(rows_.At(notZero_));
    field.blnIsChoosed = FlagOf(rows_.At(isChoosed_));
    field.strPath = field.strListFieldDesc;
    // Saving writes these two back for every field, so they must be known.
    field.lngDisplayWidth = ToLong(Number(displayWidth_));
    field.bytSort = ToByte(Number(sort_));
    return field;
  }

  // The stored condition as it stands in ListCond. Its texts and numbers are kept as they are:
  // NotNull would make 12 of "12,15" and 1 of "01".
  StoredCondition Condition() {
    StoredCondition stored;
    stored.stringOp = Stored(stringOp_);
    stored.string1 = Stored(string1_);
    stored.string2 = Stored(string2_);
    stored.dateOp = Stored(dateOp_);
    stored.date1 = Stored(date1_);
    stored.date2 = Stored(date2_);
    stored.doubleOp = Stored(doubleOp_);
    stored.double1 = Decimal(double1_);
    stored.double2 = Decimal(double2_);
    stored.boolean = FlagOf(rows_.At(boolean_));
    stored.isMulti = FlagOf(rows_.At(isMulti_));
    stored.codeIds = Stored(codeId_);
    stored.codeNames = Stored(keyName_);
    return stored;
  }

 private:
  Value Number(std::size_t column) { return NumberOf(rows_.At(column)); }
  Text Stored(std::size_t column) { return ToTextOrEmpty(rows_.At(column)); }
  Text Decimal(std::size_t column) {
    const Value value = rows_.At(column);
    return value.Is<double>() ? PlainDecimalText(std::get<double>(value.data()))
                              : ToTextOrEmpty(value);
  }
  std::size_t Find(TextView name) { return rows_.Column(name); }

  Recordset& rows_;
  std::size_t viewFieldId_ = Find(u"lngViewFieldID");
  std::size_t listFieldId_ = Find(u"lngListFieldID");
  std::size_t biaTableName_ = Find(u"strBiaTableName");
  std::size_t listFieldNo_ = Find(u"lngListFieldNO1");
  std::size_t viewFieldNo_ = Find(u"lngViewFieldNO");
  std::size_t head_ = Find(u"bytHead");
  std::size_t description_ = Find(u"strViewFieldDesc");
  std::size_t fieldSize_ = Find(u"bytFieldSize");
  std::size_t isMust_ = Find(u"blnIsMust");
  std::size_t isPrep_ = Find(u"blnIsPrep");
  std::size_t keyField_ = Find(u"strKeyField");
  std::size_t prepOrder_ = Find(u"bytPrepOrder");
  std::size_t tableName_ = Find(u"strTableName");
  std::size_t fieldName_ = Find(u"strFieldName");
  std::size_t fieldType_ = Find(u"strFieldType");
  std::size_t fieldDec_ = Find(u"bytFieldDec");
  std::size_t isFilter_ = Find(u"blnIsFilter");
  std::size_t isChoose_ = Find(u"blnIsChoose");
  std::size_t isFixed_ = Find(u"blnIsFixed");
  std::size_t isFind_ = Find(u"blnIsFind");
  std::size_t isNotList_ = Find(u"blnIsNotList");
  std::size_t isFilt_ = Find(u"blnIsFilt");
  std::size_t format_ = Find(u"bytFormat");
  std::size_t notZero_ = Find(u"blnNotZero");
  std::size_t isChoosed_ = Find(u"blnIsChoosed1");
  std::size_t displayWidth_ = Find(u"lngdisplaywidth");
  std::size_t sort_ = Find(u"bytSort1");
  std::size_t conditionPath_ = Find(u"Strpath");
  std::size_t stringOp_ = Find(u"Strstringop");
  std::size_t string1_ = Find(u"Strstring1");
  std::size_t string2_ = Find(u"Strstring2");
  std::size_t dateOp_ = Find(u"Strdateop");
  std::size_t date1_ = Find(u"Dtmdate1");
  std::size_t date2_ = Find(u"Dtmdate2");
  std::size_t doubleOp_ = Find(u"Strdoubleop");
  std::size_t double1_ = Find(u"Dbldouble1");
  std::size_t double2_ = Find(u"Dbldouble2");
  std::size_t isMulti_ = Find(u"Blnismulicond");
  std::size_t boolean_ = Find(u"Blnboolean");
  std::size_t codeId_ = Find(u"Strcodeid");
  std::size_t keyName_ = Find(u"Strkeyname");
};

// The chosen codes of one CODE condition. Writing makes one row; older data may hold one row per
// code. When they cannot be read, what the field statement has joined stands.
void ReadCodes(Session& session, std::int32_t listId, const Text& path, StoredCondition& stored) {
  Step(u"ListSet: chosen codes", [&] {
    OpenedRecordset rows(MAction::ConnectionOf(session),
                         Join(u"SELECT * FROM listmultiidcond WHERE lngListID = ", listId,
                              u" And strpath='", path, u"'"),
                         Cursor::Static);
    if (!rows.HasRow()) return;
    const std::size_t idColumn = rows->Column(u"strCodeID");
    const std::size_t nameColumn = rows->Column(u"strKeyName");
    Text ids;
    Text names;
    const auto append = [](Text& all, const Text& one, char16_t separator) {
      if (TrimBlanks(one).empty()) return;
      if (!all.empty()) all.push_back(separator);
      all.append(one);
    };
    for (; !rows->Eof(); rows->MoveNext()) {
      append(ids, ToTextOrEmpty(rows->At(idColumn)), u',');
      append(names, ToTextOrEmpty(rows->At(nameColumn)), u' ');
    }
    stored.codeIds = std::move(ids);
    stored.codeNames = std::move(names);
    rows.Close();
  });
}

ConditionContext ContextOf(Session& session) {
  ConditionContext context;
  context.dateRange = [&session](TextView word, Text& from, Text& to) {
    Date begin;
    Date end;
    if (!MActivity::GetDateRange(session, word, begin, end)) return false;
    from = FormatDate(begin);
    to = FormatDate(end);
    return true;
  };
  context.class1Name = MActivity::GetClass1Name(session);
  context.class2Name = MActivity::GetClass2Name(session);
  context.naturalCurrencyId = session.NaturalCurrencyId;
  return context;
}

void FindList(Session& session, ListType& list) {
  OpenedRecordset row(
      MAction::ConnectionOf(session),
      Join(u"Select * From List Where lngViewID =", list.lngViewID, u" And lngOrganizationID =",
           session.LoginOrganizationId, u" And lngOperatorID =", session.LoginOperatorId),
      Cursor::Static);
  if (!row) return;
  list.lngListID = row.HasRow() ? ToLong(NumberOf(row[u"lngListID"])) : 0;
  row.Close();
}

void LoadFields(Session& session, ListType& list) {
  OpenedRecordset rows(MAction::ConnectionOf(session), FieldStatement(session, list.lngViewID),
                       Cursor::Static);
  if (!rows) return;
  list.ListField.clear();
  list.intFixedCols = 0;
  list.strListPureWhere.clear();
  if (!rows.HasRow()) return rows.Close();

  FieldRows fields(*rows.operator->());
  // A field with several codes comes in several rows, and not always next to each other.
  std::unordered_set<std::int32_t> seen;
  std::optional<ConditionContext> context;  // two statements, so only for lists with conditions
  for (; !rows->Eof(); rows->MoveNext()) {
    if (!seen.insert(fields.ViewFieldId()).second) continue;
    ListFieldType& field = list.ListField.emplace_back(fields.Field());
    if (field.blnIsFixed) ++list.intFixedCols;
    if (!fields.HasCondition()) continue;
    if (!context) context = ContextOf(session);
    StoredCondition stored = fields.Condition();
    if (FieldTypeOf(field.strFieldType) == FieldType::Code)
      ReadCodes(session, list.lngListID, field.strPath, stored);
    const Text sql = RestoreCondition(stored, *context, field);
    if (sql.empty()) continue;
    if (!list.strListPureWhere.empty()) list.strListPureWhere.append(u" And ");
    list.strListPureWhere.append(sql);
  }
  rows.Close();
}

}  // namespace

void LoadView(Session& session, std::int32_t viewId, ListType& list) {
  list.lngViewID = viewId;
  Step(u"ListSet.ViewId", [&] {
    OpenedRecordset row(
        MAction::ConnectionOf(session),
        Join(u"Select strViewName,strViewSQL,strCurTable,StrViewWhere from View1 Where lngViewId=",
             viewId),
        Cursor::Static);
    if (!row.HasRow()) return;
    const auto set = [&](TextView column, Text& target) {
      Step(Join(u"ListSet.ViewId: ", column), [&] { target = TextOf(row[column]); });
    };
    set(u"strViewName", list.strViewName);
    set(u"strCurTable", list.strCurTable);
    set(u"strViewSQL", list.strListFrom);
    set(u"strViewWhere", list.strListWhere);
    // The statement does not select it: this step fails and the key keeps what it had.
    set(u"strPrimaryKey", list.strPrimaryKey);
    set(u"strViewName", list.strListName);
    RestrictToOrganization(session, list);
    row.Close();
  });
  RefreshListField(session, list);
}

void RefreshListField(Session& session, ListType& list) {
  Step(u"ListSet.RefreshListField: list", [&] { FindList(session, list); });
  Step(u"ListSet.RefreshListField: fields", [&] { LoadFields(session, list); });
}

}  // namespace fetchkit::MListSet
