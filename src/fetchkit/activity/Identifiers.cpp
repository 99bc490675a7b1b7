#include "fetchkit/activity/Identifiers.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "fetchkit/activity/ActivityCaches.h"
#include "fetchkit/activity/ServiceRows.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/session/model/Business.h"

namespace fetchkit::MActivity {
namespace {

// The manufacturing module draws the ids of all its tables from one sequence.
constexpr TextView kSharingTables[] = {u"MMFORECAST",       u"MMFORECASTDETAIL",  u"MMMATERIAL",
                                       u"MMMATERIALDETAIL", u"MMMATERIALDETAIL1", u"MMORDER",
                                       u"MMORDERDETAIL",    u"MMORDERDETAIL1",    u"MMPRODUCT",
                                       u"MMPRODUCTDETAIL"};

Text ClassName(Session& session, TextView what, TextView key) {
  return Guarded(what, Text(), [&] {
    return ToTextOrEmpty(
        GetSysSetting(session, key, u"标题设置", key, std::int32_t{1}, std::int32_t{-1}));
  });
}

// The column behind a flexible field's title: its number behind the column's own word.
Text FlexibleColumn(TextView fieldTitle, TextView columnWord) {
  return ReplaceText(fieldTitle, u"智能字段", columnWord);
}

// Returns no rows but fails where the schema lacks what it names.
Text Probe(Session& session, TextView column, TextView table) {
  return Join(u"Select ", column, u" From ", MAction::Business(session)->AccountUserID(), u".",
              table, u" Where 1=0");
}

bool SchemaTakes(Session& session, TextView what, TextView column, TextView table) {
  return Guarded(what, false, [&] {
    const Text sql = Probe(session, column, table);
    Text key = Join(session.AccountKey, u":", sql);
    auto& probes = ActivityCaches::Of(session).probes;
    if (const auto known = probes.find(key); known != probes.end()) return known->second;
    const SessionConnectionPtr& connection = MAction::ConnectionOf(session);
    bool taken = false;
    // Its own trap: a statement that raises answers the question like one that is refused.
    Step(
        what,
        [&] { taken = bool(OpenedRecordset(connection, sql, Cursor::Static, Severity::Note)); },
        Severity::Note);
    return probes.insert_or_assign(std::move(key), taken).first->second;
  });
}

}  // namespace

std::int32_t GetNewID(Session& session, TextView strTabName) {
  return Guarded(u"Activity.GetNewID", std::int32_t{0}, [&] {
    const bool shares = std::any_of(std::begin(kSharingTables), std::end(kSharingTables),
                                    [&](TextView table) { return EqualFolded(table, strTabName); });
    const Text sql = shares ? Text(u"SELECT MMActivity_SEQ.NEXTVAL As lngId FROM DUAL")
                            : Join(u"SELECT ", strTabName, u"_SEQ.NEXTVAL As lngId FROM DUAL");
    const auto id = ReadFirst(session, sql, u"lngID");
    return id ? ToLong(*id) : 0;
  });
}

Text GetOrganizationCode(Session& session, std::int32_t lngOrganizationID) {
  return Guarded(u"Activity.GetOrganizationCode", Text(), [&] {
    const auto code =
        ReadFirst(session,
                  Join(u"Select strOrganizationCode From Organization Where lngOrganizationID=",
                       lngOrganizationID),
                  u"strOrganizationCode");
    return code ? ToText(*code) : Text();
  });
}

bool IsDetailOrganization(Session& session, std::int32_t lngOrganizationID) {
  return Guarded(u"Activity.IsDetailOrganization", false, [&] {
    const auto isDetail = ReadFirst(
        session,
        Join(u"Select blnIsDetail From Organization Where lngOrganizationID = ", lngOrganizationID),
        u"blnIsDetail");
    return isDetail && ToBoolean(*isDetail);
  });
}

Text GetClass1Name(Session& session) {
  return ClassName(session, u"Activity.GetClass1Name", u"统计");
}

Text GetClass2Name(Session& session) {
  return ClassName(session, u"Activity.GetClass2Name", u"项目");
}

Value GetSysSetting(Session& session, TextView strKey, const Value& varSection,
                    const Value& varDefaultValue, const Value& varModuleId,
                    const Value& varOrganizationId) {
  return Guarded(u"Activity.GetSysSetting", Value(u""), [&]() -> Value {
    Text sql = Join(u"SELECT * FROM Setting WHERE strKey='", strKey, u"'");
    if (!varSection.IsMissing()) sql += Join(u" AND strSection='", ToTextOrEmpty(varSection), u"'");
    if (!varModuleId.IsMissing()) sql += Join(u" AND lngModuleID=", ToTextOrEmpty(varModuleId));
    // The login organization's id, never the one passed: that one is only a switch.
    if (varOrganizationId.IsMissing() || ToDouble(varOrganizationId) > 0)
      sql += Join(u" AND lngOrganizationID=", session.LoginOrganizationId);
    if (auto setting = ReadFirst(session, sql, u"strSetting")) return *std::move(setting);
    return varDefaultValue.IsMissing() ? Value(u"") : varDefaultValue;
  });
}

std::uint8_t GetCurrencyDec(Session& session, TextView strCond) {
  return Guarded(u"Activity.GetCurrencyDec", std::uint8_t{0}, [&] {
    const auto decimals = ReadFirst(
        session, Join(u"Select bytCurrencydec From Currencys Where ", strCond), u"bytCurrencydec");
    return decimals ? ToByte(*decimals) : std::uint8_t{0};
  });
}

bool FlexFieldIsUsed(Session& session, TextView strFieldTitle, Text& strTitle) {
  return Guarded(u"Activity.FlexFieldIsUsed", false, [&] {
    const auto use = ReadFirst(session,
                               Join(u"SELECT * FROM FlexibleUseField WHERE lngOrganizationID = ",
                                    session.LoginOrganizationId),
                               FlexibleColumn(strFieldTitle, u"blnFieldUse"));
    if (!use || !IsNumeric(*use) || ToDouble(*use) == 0) return false;
    const auto title = ReadFirst(session, u"SELECT * FROM FlexibleTitle",
                                 FlexibleColumn(strFieldTitle, u"strTitle"));
    if (title) strTitle = ToTextOrEmpty(*title);
    return true;
  });
}

bool TableNameExists(Session& session, TextView strTableName) {
  return SchemaTakes(session, u"Activity.TableNameExists", u"1", strTableName);
}

bool TableFieldExists(Session& session, TextView strTableName, TextView strFieldName) {
  return SchemaTakes(session, u"Activity.TableFieldExists", strFieldName, strTableName);
}

bool TableAnswers(Session& session, TextView tableName) {
  return Guarded(u"TableAnswers", false, [&] {
    return bool(OpenedRecordset(MAction::ConnectionOf(session), Probe(session, u"1", tableName),
                                Cursor::Static));
  });
}

}  // namespace fetchkit::MActivity
