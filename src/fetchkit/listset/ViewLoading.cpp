#include "fetchkit/listset/ViewLoading.h"

#include <deque>
#include <optional>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/listset/model/FieldType.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit::MListSet {
namespace {

// Texts and numbers are read as StringHelpers::NotNull reads them.
Text TextOf(Value&& value) {
  if (StandsForNothing(value)) return {};
  if (const auto number = NumberInFront(value)) return NumberText(*number);
  return TakeText(std::move(value));
}

// What counts as a number: nothing as 0, and a Boolean as -1 or 0, because the text "True" would
// read as the number 0.
std::optional<double> NumberIn(const Value& value) {
  if (StandsForNothing(value)) return 0;
  if (value.Is<bool>()) return ToDouble(value);
  return NumberInFront(value);
}

double NumberOf(const Value& value) {
  const auto number = NumberIn(value);
  return number ? *number : ToDouble(value);
}

bool FlagOf(const Value& value) {
  const auto number = NumberIn(value);
  return number ? *number != 0 : ToBoolean(value);
}

// Nothing for a Null: no row has such an id, but a read that went wrong may give one.
std::optional<double> IdOf(const Value& value) {
  if (StandsForNothing(value)) return std::nullopt;
  if (const auto number = NumberInFront(value)) return number;
  return ToDouble(value);
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

// A column of the field statement and what it sets.
template <class Record>
struct ColumnOf {
  TextView name;
  void (*read)(Value&& value, Record& record);
};

template <auto member>
void Field(Value&& value, ListFieldType& field) {
  auto& target = field.*member;
  using Target = std::decay_t<decltype(target)>;
  if constexpr (std::is_same_v<Target, Text>) {
    target = TextOf(std::move(value));
  } else if constexpr (std::is_same_v<Target, bool>) {
    target = FlagOf(value);
  } else {
    const double number = NumberOf(value);
    // What is left to fail is the range, and that costs this value alone.
    Step(u"ListSet.RefreshListField: value", [&] { target = RoundedTo<Target>(number); });
  }
}

// The caption is the view's, not the one that the list has saved. Saving writes width and sorting
// back for every field, so they must be known.
using F = ListFieldType;
constexpr ColumnOf<F> kFieldColumns[] = {
    {u"lngViewFieldID", Field<&F::lngViewFieldID>},
    {u"lngListFieldID", Field<&F::lngListFieldID>},
    {u"strBiaTableName", Field<&F::strBiaTableName>},
    {u"lngListFieldNO1", Field<&F::lngListFieldNO>},
    {u"lngViewFieldNO", Field<&F::lngViewFieldNO>},
    {u"bytHead", Field<&F::bytHead>},
    {u"strViewFieldDesc", Field<&F::strListFieldDesc>},
    {u"bytFieldSize", Field<&F::bytFieldSize>},
    {u"blnIsMust", Field<&F::blnIsMust>},
    {u"blnIsPrep", Field<&F::blnIsPrep>},
    {u"strKeyField", Field<&F::strKeyField>},
    {u"bytPrepOrder", Field<&F::bytPrepOrder>},
    {u"strTableName", Field<&F::strTableName>},
    {u"strFieldName", Field<&F::strFieldName>},
    {u"strFieldType", Field<&F::strFieldType>},
    {u"bytFieldDec", Field<&F::bytFieldDec>},
    {u"blnIsFilter", Field<&F::blnIsFilter>},
    {u"blnIsChoose", Field<&F::blnIsChoose>},
    {u"blnIsFixed", Field<&F::blnIsFixed>},
    {u"blnIsFind", Field<&F::blnIsFind>},
    {u"blnIsNotList", Field<&F::blnIsNotList>},
    {u"blnIsFilt", Field<&F::blnIsFilt>},
    {u"bytFormat", Field<&F::bytFormat>},
    {u"blnNotZero", Field<&F::blnNotZero>},
    {u"blnIsChoosed1", Field<&F::blnIsChoosed>},
    {u"lngdisplaywidth", Field<&F::lngDisplayWidth>},
    {u"bytSort1", Field<&F::bytSort>},
};

// The stored condition as it stands in ListCond. Its texts and numbers are kept as they are:
// NotNull would make 12 of "12,15" and 1 of "01".
template <auto member>
void AsStored(Value&& value, StoredCondition& stored) {
  stored.*member = TakeTextOrEmpty(std::move(value));
}

template <auto member>
void Decimal(Value&& value, StoredCondition& stored) {
  const double* number = std::get_if<double>(&value.data());
  stored.*member =
      number != nullptr ? PlainDecimalText(*number) : TakeTextOrEmpty(std::move(value));
}

template <auto member>
void Flag(Value&& value, StoredCondition& stored) {
  stored.*member = FlagOf(value);
}

using S = StoredCondition;
constexpr ColumnOf<S> kConditionColumns[] = {
    {u"Strstringop", AsStored<&S::stringOp>}, {u"Strstring1", AsStored<&S::string1>},
    {u"Strstring2", AsStored<&S::string2>},   {u"Strdateop", AsStored<&S::dateOp>},
    {u"Dtmdate1", AsStored<&S::date1>},       {u"Dtmdate2", AsStored<&S::date2>},
    {u"Strdoubleop", AsStored<&S::doubleOp>}, {u"Dbldouble1", Decimal<&S::double1>},
    {u"Dbldouble2", Decimal<&S::double2>},    {u"Blnismulicond", Flag<&S::isMulti>},
    {u"Blnboolean", Flag<&S::boolean>},
};

// Joins the codes of one condition. Writing makes one row of them; older data may hold one row for
// each, and rows without a code.
void JoinCodes(StoredCondition& stored, const Value& id, const Value& name) {
  if (!StandsForNothing(id)) AppendWith(stored.codeIds, u',', ToText(id));
  if (!StandsForNothing(name)) AppendWith(stored.codeNames, u' ', ToText(name));
}

// The rows of the field statement. All columns are looked up in advance, each once.
class FieldRows {
 public:
  explicit FieldRows(Recordset& rows) : rows_(rows) {}

  std::optional<double> ViewFieldId() { return IdOf(rows_.At(fields_.front())); }
  bool HasCondition() { return !TakeTextOrEmpty(rows_.At(conditionPath_)).empty(); }

  void ReadField(ListFieldType& field) {
    Read(kFieldColumns, fields_, field);
    field.strPath = field.strListFieldDesc;
  }
  void ReadCondition(StoredCondition& stored) { Read(kConditionColumns, conditions_, stored); }
  void AddCodes(StoredCondition& stored) {
    JoinCodes(stored, rows_.At(codeIds_), rows_.At(codeNames_));
  }

 private:
  template <class Columns>
  std::vector<std::size_t> Find(const Columns& columns) {
    std::vector<std::size_t> found;
    for (const auto& column : columns)
      found.push_back(rows_.Column(column.name));
    return found;
  }

  template <class Columns, class Record>
  void Read(const Columns& columns, const std::vector<std::size_t>& places, Record& record) {
    for (std::size_t i = 0; i < places.size(); ++i)
      columns[i].read(rows_.At(places[i]), record);
  }

  Recordset& rows_;
  std::vector<std::size_t> fields_ = Find(kFieldColumns);
  std::size_t conditionPath_ = rows_.Column(u"Strpath");
  std::vector<std::size_t> conditions_ = Find(kConditionColumns);
  std::size_t codeIds_ = rows_.Column(u"Strcodeid");
  std::size_t codeNames_ = rows_.Column(u"Strkeyname");
};

// The chosen codes of one CODE condition. When they cannot be read, what the rows of the field
// statement hold stands.
void ReadCodes(Session& session, std::int32_t listId, const Text& path, StoredCondition& stored) {
  Step(u"ListSet: chosen codes", [&] {
    OpenedRecordset rows(MAction::ConnectionOf(session),
                         Join(u"SELECT * FROM listmultiidcond WHERE lngListID = ", listId,
                              u" And strpath='", path, u"'"),
                         Cursor::Static);
    if (!rows.HasRow()) return;
    const std::size_t idColumn = rows->Column(u"strCodeID");
    const std::size_t nameColumn = rows->Column(u"strKeyName");
    StoredCondition codes;
    for (; !rows->Eof(); rows->MoveNext())
      JoinCodes(codes, rows->At(idColumn), rows->At(nameColumn));
    stored.codeIds = std::move(codes.codeIds);
    stored.codeNames = std::move(codes.codeNames);
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

// Whether an opened statement without a row has none indeed: a host that does not say whether it is
// empty counts as one that says so.
bool IsEmpty(OpenedRecordset& rows) {
  return rows->Eof();
}

// A row without the id under which it is saved back.
void TellIdMissing(TextView what) {
  TellDiagnostics(what, u"A row has no id, so that the list cannot be saved.", {});
}

void FindList(Session& session, ListType& list, bool& whole) {
  OpenedRecordset row(
      MAction::ConnectionOf(session),
      Join(u"Select * From List Where lngViewID =", list.lngViewID, u" And lngOrganizationID =",
           session.LoginOrganizationId, u" And lngOperatorID =", session.LoginOperatorId),
      Cursor::Static);
  if (!row) return;
  if (row.HasRow()) {
    const std::optional<double> id = IdOf(row[u"lngListID"]);
    list.lngListID = ToLong(id.value_or(0));
    whole = id.has_value();
    if (!whole) TellIdMissing(u"ListSet.RefreshListField: list");
  } else {
    list.lngListID = 0;
    whole = IsEmpty(row);
  }
  row.Close();
}

void LoadFields(Session& session, ListType& list, bool& whole) {
  OpenedRecordset rows(MAction::ConnectionOf(session), FieldStatement(session, list.lngViewID),
                       Cursor::Static);
  if (!rows) return;
  ListType read;
  bool complete = true;
  if (rows.HasRow()) {
    FieldRows fields(*rows.operator->());
    // A field with several codes comes in several rows, and not always next to each other: its
    // condition is complete behind the last row.
    std::unordered_map<double, std::size_t> places;  // of the fields, by their id
    std::deque<std::optional<StoredCondition>> conditions;
    auto place = places.end();
    for (; !rows->Eof(); rows->MoveNext()) {
      const std::optional<double> id = fields.ViewFieldId();
      if (!id) complete = false;
      bool isNew = false;
      if (place == places.end() || place->first != id.value_or(0))
        std::tie(place, isNew) = places.try_emplace(id.value_or(0), conditions.size());
      if (isNew) {
        ListFieldType& field = read.ListField.emplace_back();
        fields.ReadField(field);
        if (field.blnIsFixed) ++read.intFixedCols;
        auto& condition = conditions.emplace_back();
        if (fields.HasCondition()) fields.ReadCondition(condition.emplace());
      }
      auto& stored = conditions[place->second];
      if (stored) fields.AddCodes(*stored);
    }
    if (!complete) TellIdMissing(u"ListSet.RefreshListField: fields");
    std::optional<ConditionContext> context;  // two statements, so only for lists with conditions
    for (std::size_t i = 0; i < conditions.size(); ++i) {
      if (!conditions[i]) continue;
      ListFieldType& field = read.ListField[i];
      if (!context) context = ContextOf(session);
      if (HasCodes(field)) ReadCodes(session, list.lngListID, field.strPath, *conditions[i]);
      const Text sql = RestoreCondition(*conditions[i], *context, field);
      if (sql.empty()) continue;
      if (!read.strListPureWhere.empty()) read.strListPureWhere.append(u" And ");
      read.strListPureWhere.append(sql);
    }
  } else {
    complete = IsEmpty(rows);
  }
  list.ListField = std::move(read.ListField);
  list.intFixedCols = read.intFixedCols;
  list.strListPureWhere = std::move(read.strListPureWhere);
  whole = complete;
  rows.Close();
}

}  // namespace

void LoadView(Session& session, ListType& list, LoadedParts& loaded) {
  loaded.view = false;
  Step(u"ListSet.ViewId", [&] {
    OpenedRecordset row(
        MAction::ConnectionOf(session),
        Join(u"Select strViewName,strViewSQL,strCurTable,StrViewWhere from View1 Where lngViewId=",
             list.lngViewID),
        Cursor::Static);
    if (!row) return;
    if (!row.HasRow()) {
      loaded.view = IsEmpty(row);
      return;
    }
    const auto set = [&](TextView column, Text& target, Severity severity = Severity::Failure) {
      return Step(
          Join(u"ListSet.ViewId: ", column), [&] { target = TextOf(row[column]); }, severity);
    };
    bool whole = set(u"strViewName", list.strViewName);
    whole &= set(u"strCurTable", list.strCurTable);
    whole &= set(u"strViewSQL", list.strListFrom);
    whole &= set(u"strViewWhere", list.strListWhere);
    // The statement does not select it: this step fails and the key keeps what it had.
    set(u"strPrimaryKey", list.strPrimaryKey, Severity::Note);
    whole &= set(u"strViewName", list.strListName);
    RestrictToOrganization(session, list);
    loaded.view = whole;
    row.Close();
  });
  RefreshListField(session, list, loaded);
}

void RefreshListField(Session& session, ListType& list, LoadedParts& loaded) {
  loaded.list = loaded.fields = false;
  Step(u"ListSet.RefreshListField: list", [&] { FindList(session, list, loaded.list); });
  Step(u"ListSet.RefreshListField: fields", [&] { LoadFields(session, list, loaded.fields); });
}

void DropFields(ListType& list) noexcept {
  list.lngListID = 0;
  list.ListField.clear();
  list.intFixedCols = 0;
  list.strListPureWhere.clear();
}

}  // namespace fetchkit::MListSet
