#include "fetchkit/session/model/Business.h"

#include "fetchkit/platform/DateText.h"
#include "fetchkit/session/model/RecordColumns.h"

namespace fetchkit {
namespace {

constexpr RecordColumn<Business> kSettings[] = {
    {u"Business.bytAccountProperty", Into<&Business::AccountProperty, ToByte>},
    {u"Business.bytGroupDBType", Into<&Business::GroupDBType, ToByte>},
    {u"Business.bytDiscountRateDec", Into<&Business::DiscountRateDec, ToByte>},
    {u"Business.bytPriceDec", Into<&Business::PriceDec, ToByte>},
    {u"Business.bytQuantityDec", Into<&Business::QuantityDec, ToByte>},
    {u"Business.bytType", Into<&Business::VersionType, ToByte>},
    {u"Business.lngCurrencyID", Into<&Business::CurrencyID, ToLong>},
    // Null where the currency has no row; that must not keep the decimals behind them from loading.
    {u"Currencys.strCurrencyCode", Into<&Business::CurrencyCode, ToTextOrEmpty>},
    {u"Currencys.strCurrencyName", Into<&Business::CurrencyName, ToTextOrEmpty>},
    {u"Nvl(Currencys.bytCurrencydec,2) As bytCurrencydec",
     Into<&Business::NaturalCurDec, ToInteger>, kSelectedLast},
    {u"Business.lngTradeID", Into<&Business::TradeID, ToLong>},
    {u"Business.strAccountSystem", Into<&Business::AccountSystem, ToText>},
    {u"Business.strApplicationLabel", Into<&Business::ApplicationLabel, ToText>},
    {u"Nvl(Business.strGAUnitCode,' ') As strGAUnitCode", Into<&Business::GAUnitCode, ToText>},
    {u"Business.strMessageServer", Into<&Business::MessageServer, ToText>},
    {u"Business.strNotes", Into<&Business::Notes, ToText>},
    {u"Business.strOldAccountSystem", Into<&Business::OldAccountSystem, ToText>},
    {u"Business.strStartDate", Into<&Business::StartDate, ToDateText>},
    {u"Business.strTaxType", Into<&Business::TaxType, ToText>},
    {u"Business.strUserName", Into<&Business::UserName, ToText>},
    {u"Business.strVer", Into<&Business::Version, ToText>},
    {u"Business.strDynPwdSvrIP", Into<&Business::DynPwdSvrIP, ToText>},
    {u"Business.strDynPwdSvrPort", Into<&Business::DynPwdSvrPort, ToText>},
};

constexpr RecordColumn<Business> kAccountNames[] = {
    {u"strAccountName", Into<&Business::AccountName, ToText>},
    {u" strVersion", Into<&Business::AccountVersion, ToText>},
    {u" strGaUnitCode", Into<&Business::AccountUnitCode, ToText>},
};

}  // namespace

namespace MAction {

std::shared_ptr<fetchkit::Business> Business(Session& session) {
  return Cached<fetchkit::Business>(session, session.AccountKey);
}

void LoadBusiness(Session& session, fetchkit::Business& business, std::int32_t accountType,
                  const Text& accountServer, const Text& accountUserId) {
  constexpr TextView kStep = u"Initialize: account settings";
  RecordLoad& load = session.AccountLoad;
  const auto loader = [&] {
    business.AccountType(ToInteger(accountType));
    business.AccountServer(accountServer);
    business.AccountUserID(accountUserId);
    const Text settings = Join(u"SELECT ", SelectList(kSettings), u" FROM Business,Currencys ",
                               u"WHERE Business.lngCurrencyID = Currencys.lngCurrencyID(+)");
    if (!LoadFirstRow(session, load, kStep, settings, kSettings, business)) return;
    const Text names =
        Join(u"SELECT ", SelectList(kAccountNames), u" FROM System.GaBaseInfo ",
             u"WHERE Upper(strUserName) = '", UpperAscii(business.AccountUserID()), u"'");
    LoadFirstRow(session, load, u"Initialize: account names", names, kAccountNames, business);
  };
  LoadIfDue(load, [&] { LoadPart(load, kStep, loader); });
}

}  // namespace MAction
}  // namespace fetchkit
