#include "fetchkit/session/model/Business.h"

#include "fetchkit/base/Guard.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/platform/DateText.h"

namespace fetchkit::MAction {
namespace {

constexpr TextView kSettings =
    u"SELECT Business.bytAccountProperty,Business.bytGroupDBType,Business.bytDiscountRateDec,"
    u"Business.bytPriceDec,"
    u"Business.bytQuantityDec,Business.bytType,Business.lngCurrencyID,Currencys.strCurrencyCode,"
    u"Currencys.strCurrencyName,Business.lngTradeID,"
    u"Business.strAccountSystem,Business.strApplicationLabel,"
    u"Nvl(Business.strGAUnitCode,' ') As strGAUnitCode,"
    u"Business.strMessageServer,Business.strNotes,Business.strOldAccountSystem,"
    u"Business.strStartDate,Business.strTaxType,Business.strUserName,Business.strVer,"
    u"Business.strDynPwdSvrIP,Business.strDynPwdSvrPort,"
    u"Nvl(Currencys.bytCurrencydec,2) As bytCurrencydec "
    u"FROM Business,Currencys "
    u"WHERE Business.lngCurrencyID = Currencys.lngCurrencyID(+)";

// In the order of the properties, because the first Null ends the copying.
void CopySettings(OpenedRecordset& row, fetchkit::Business& business) {
  business.AccountProperty(ToByte(row[u"bytAccountProperty"]));
  business.GroupDBType(ToByte(row[u"bytGroupDBType"]));
  business.DiscountRateDec(ToByte(row[u"bytDiscountRateDec"]));
  business.PriceDec(ToByte(row[u"bytPriceDec"]));
  business.QuantityDec(ToByte(row[u"bytQuantityDec"]));
  business.VersionType(ToByte(row[u"bytType"]));
  business.CurrencyID(ToLong(row[u"lngCurrencyID"]));
  // Null where the currency has no row; that must not keep the decimals behind them from loading.
  business.CurrencyCode(ToTextOrEmpty(row[u"strCurrencyCode"]));
  business.CurrencyName(ToTextOrEmpty(row[u"strCurrencyName"]));
  business.NaturalCurDec(ToInteger(row[u"bytCurrencydec"]));
  business.TradeID(ToLong(row[u"lngTradeID"]));
  business.AccountSystem(ToText(row[u"strAccountSystem"]));
  business.ApplicationLabel(ToText(row[u"strApplicationLabel"]));
  business.GAUnitCode(ToText(row[u"strGAUnitCode"]));
  business.MessageServer(ToText(row[u"strMessageServer"]));
  business.Notes(ToText(row[u"strNotes"]));
  business.OldAccountSystem(ToText(row[u"strOldAccountSystem"]));
  business.StartDate(ToDateText(row[u"strStartDate"]));
  business.TaxType(ToText(row[u"strTaxType"]));
  business.UserName(ToText(row[u"strUserName"]));
  business.Version(ToText(row[u"strVer"]));
  business.DynPwdSvrIP(ToText(row[u"strDynPwdSvrIP"]));
  business.DynPwdSvrPort(ToText(row[u"strDynPwdSvrPort"]));
}

// Answers whether the statement could be opened.
bool LoadSettings(Session& session, fetchkit::Business& business) {
  OpenedRecordset rows(ConnectionOf(session), kSettings, Cursor::Plain);
  if (!rows) return false;
  if (rows.HasRow()) CopySettings(rows, business);
  rows.Close();
  return true;
}

void LoadAccountNames(Session& session, fetchkit::Business& business) {
  const Text sql =
      Join(u"SELECT strAccountName, strVersion, strGaUnitCode FROM System.GaBaseInfo ",
           u"WHERE Upper(strUserName) = '", UpperAscii(business.AccountUserID()), u"'");
  OpenedRecordset rows(ConnectionOf(session), sql, Cursor::Plain);
  if (!rows) return;
  if (rows.HasRow()) {
    business.AccountName(ToText(rows[u"strAccountName"]));
    business.AccountVersion(ToText(rows[u"strVersion"]));
    business.AccountUnitCode(ToText(rows[u"strGaUnitCode"]));
  }
  rows.Close();
}

}  // namespace

std::shared_ptr<fetchkit::Business> Business(Session& session) {
  return Cached<fetchkit::Business>(session, session.AccountKey);
}

void LoadBusiness(Session& session, fetchkit::Business& business, std::int32_t accountType,
                  const Text& accountServer, const Text& accountUserId) {
  if (!session.AccountChanged) return;
  Step(u"Initialize: account settings", [&] {
    business.AccountType(ToInteger(accountType));
    business.AccountServer(accountServer);
    business.AccountUserID(accountUserId);
    if (LoadSettings(session, business)) LoadAccountNames(session, business);
  });
}

}  // namespace fetchkit::MAction
