#include "session/SampleBooks.h"

#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::test {

const std::vector<Text>& FirstLoginStatements() {
  static const std::vector<Text> statements = {
      u"SELECT "
      u"Business.bytAccountProperty,Business.bytGroupDBType,Business.bytDiscountRateDec,Business."
      u"bytPriceDec,Business.bytQuantityDec,Business.bytType,Business.lngCurrencyID,Currencys."
      u"strCurrencyCode,Currencys.strCurrencyName,Business.lngTradeID,Business.strAccountSystem,"
      u"Business.strApplicationLabel,Nvl(Business.strGAUnitCode,' ') As "
      u"strGAUnitCode,Business.strMessageServer,Business.strNotes,Business.strOldAccountSystem,"
      u"Business.strStartDate,Business.strTaxType,Business.strUserName,Business.strVer,Business."
      u"strDynPwdSvrIP,Business.strDynPwdSvrPort,Nvl(Currencys.bytCurrencydec,2) As bytCurrencydec "
      u"FROM Business,Currencys WHERE Business.lngCurrencyID = Currencys.lngCurrencyID(+)",
      u"SELECT strAccountName, strVersion, strGaUnitCode FROM System.GaBaseInfo WHERE "
      u"Upper(strUserName) = 'ACC01'",
      u"SELECT "
      u"lngOrganizationID,strOrganizationCode,strOrganizationName,strFullName,intlevel,strDate,"
      u"strStartDate,blnIsBase,blnIsCache,blnIsCenter,blnIsControl,blnIsDetail,blnIsInActive,"
      u"blnIsInitialized,blnIsVoucher FROM Organization WHERE blnIsInActive = 0 AND "
      u"blnIsInitialized = 1 AND lngOrganizationID = 20 ORDER BY strOrganizationCode",
      u"SELECT h.lngOrganizationId FROM Organization h,Organization r WHERE r.strOrganizationCode "
      u"LIKE h.strOrganizationCode || '-%' AND h.lngOrganizationId <> r.lngOrganizationId AND "
      u"r.lngOrganizationId = 20 ORDER BY h.intlevel",
      u"SELECT r.lngOrganizationId,r.intLevel FROM Organization h,Organization r WHERE "
      u"r.strOrganizationCode LIKE h.strOrganizationCode || '-%' AND h.lngOrganizationId <> "
      u"r.lngOrganizationId AND h.lngOrganizationId = 20 ORDER BY r.intLevel,r.lngOrganizationId",
      u"SELECT strStartDate,strEndDate FROM AccountPeriod WHERE lngOrganizationId = 20 ORDER BY "
      u"intYear,bytPeriod",
      u"SELECT intYear,bytPeriod FROM AccountPeriod WHERE lngOrganizationId = 20 AND strEndDate >= "
      u"'2004-03-17' AND strStartDate <= '2004-03-17'",
      u"SELECT intYear,bytquarter FROM AccountQuarter WHERE lngOrganizationId = 20 AND strEndDate "
      u">= '2004-03-17' AND strStartDate <= '2004-03-17'",
      u"SELECT intYear,bythalf FROM AccountHalf WHERE lngOrganizationId = 20 AND strEndDate >= "
      u"'2004-03-17' AND strStartDate <= '2004-03-17'",
      u"SELECT "
      u"Operator.lngOperatorId,Operator.strOperatorCode,Operator.strOperatorName,Nvl(Operator."
      u"strPassword,'') As "
      u"strPassword,Operator.lngDepartmentID,Operator.lngOperatorGroupID,Operator.lngRoleID,"
      u"Operator.strTokenSN,Operator.blnUseDynPwd,Operator.blnUseStcPwd,Operator.blnIsSystem,"
      u"Operator.blnIsInActive,OperatorGroup.strOperatorGroupName FROM "
      u"Operator,OperatorGroup,OrgOperatorAllot WHERE Operator.blnIsInActive = 0 AND "
      u"Operator.lngOperatorId = OrgOperatorAllot.lngOperatorId AND Operator.lngOperatorGroupId = "
      u"OperatorGroup.lngOperatorGroupId AND OrgOperatorAllot.lngOrganizationId = 20 AND "
      u"Operator.lngOperatorId = 3 ORDER BY strOperatorCode",
      u" SELECT lngSSCustomerId,strSSCustomerCode,strSSCustomerName,strFullName, blnIsInActive  "
      u"FROM SSCustomer  WHERE lngSSCustomerId = 12 ORDER BY strSSCustomerCode",
  };
  return statements;
}

Answer GoodAnswer(Statement statement) {
  const Value one = std::int32_t{1};
  const Value zero = std::int32_t{0};
  const auto number = [](std::int32_t n) { return Value(n); };
  switch (statement) {
    case kSettings:
      return Rows({u"bytAccountProperty",  u"bytGroupDBType",   u"bytDiscountRateDec",
                   u"bytPriceDec",         u"bytQuantityDec",   u"bytType",
                   u"lngCurrencyID",       u"strCurrencyCode",  u"strCurrencyName",
                   u"lngTradeID",          u"strAccountSystem", u"strApplicationLabel",
                   u"strGAUnitCode",       u"strMessageServer", u"strNotes",
                   u"strOldAccountSystem", u"strStartDate",     u"strTaxType",
                   u"strUserName",         u"strVer",           u"strDynPwdSvrIP",
                   u"strDynPwdSvrPort",    u"bytCurrencydec"},
                  {{one,         one,      number(2),   number(4), number(3),       number(5),
                    number(7),   u"RMB",   u"人民币",   number(9), u"企业会计制度", u"集团账",
                    u" ",        u"MSG01", u"备注",     u"旧制度", u"2003.1.1",     u"一般纳税人",
                    u"东方集团", u"8.50",  u"10.0.0.1", u"0443",   number(2)}});
    case kAccountNames:
      return Rows({u"strAccountName", u"strVersion", u"strGaUnitCode"},
                  {{u"东方集团账套", u"8.5", u"DF"}});
    case kOrganization:
      return Rows(
          {u"lngOrganizationID", u"strOrganizationCode", u"strOrganizationName", u"strFullName",
           u"intlevel", u"strDate", u"strStartDate", u"blnIsBase", u"blnIsCache", u"blnIsCenter",
           u"blnIsControl", u"blnIsDetail", u"blnIsInActive", u"blnIsInitialized", u"blnIsVoucher"},
          {{number(20), u"01-02", u"华东公司", u"东方集团华东公司", number(2), u"2002/12/31",
            u"2003-01-01", zero, zero, one, zero, one, zero, one, one}});
    case kAncestors:
      return Rows({u"lngOrganizationId"}, {{number(8)}, {number(10)}});
    case kDescendants:
      return Rows({u"lngOrganizationId", u"intLevel"},
                  {{number(31), number(3)}, {number(30), number(3)}, {number(40), number(4)}});
    case kBounds:
      return Rows({u"strStartDate", u"strEndDate"}, {{u"2003-01-01", u"2003-01-31"},
                                                     {u"2004-03-01", u"2004-03-31"},
                                                     {u"2005-12-01", u"2005-12-31"}});
    case kPeriod:
      return Rows({u"intYear", u"bytPeriod"}, {{number(2004), number(3)}});
    case kQuarter:
      // Another year than the period's, as where an organization changed its calendar.
      return Rows({u"intYear", u"bytquarter"}, {{number(1999), one}});
    case kHalf:
      return Rows({u"intYear", u"bythalf"}, {{number(1999), number(2)}});
    case kOperator:
      return Rows(
          {u"lngOperatorId", u"strOperatorCode", u"strOperatorName", u"strPassword",
           u"lngDepartmentID", u"lngOperatorGroupID", u"lngRoleID", u"strTokenSN", u"blnUseDynPwd",
           u"blnUseStcPwd", u"blnIsSystem", u"blnIsInActive", u"strOperatorGroupName"},
          {{number(3), u"003", u"李会计", u"00123 ", number(5), number(2), number(4), u" T-1 ",
            zero, one, zero, zero, u"会计组"}});
    case kCustomer:
      return Rows({u"lngSSCustomerId", u"strSSCustomerCode", u"strSSCustomerName", u"strFullName",
                   u"blnIsInActive"},
                  {{number(12), u"C12", u"蓝天", u"蓝天股份", one}});
    case kStatementCount:
      break;
  }
  return Refused();
}

std::shared_ptr<FakeConnection> GoodHost() {
  auto host = std::make_shared<FakeConnection>();
  for (int i = 0; i < kStatementCount; ++i)
    host->On(FirstLoginStatements()[static_cast<std::size_t>(i)],
             GoodAnswer(static_cast<Statement>(i)));
  return host;
}

std::vector<std::pair<std::string, std::string>> Snapshot() {
  std::vector<std::pair<std::string, std::string>> seen;
  const auto text = [&](const char* name, const Text& value) {
    seen.emplace_back(name, ToUtf8(value));
  };
  const auto number = [&](const char* name, long value) {
    seen.emplace_back(name, std::to_string(value));
  };
  Interface entry;
  const Session& s = MAction::CurrentSession();
  text("LoginDate", entry.LoginDate());
  number("LoginOrganizationId", entry.LoginOrganizationId());
  text("LoginOrganizationCode", entry.LoginOrganizationCode());
  text("LoginOrganizationName", entry.LoginOrganizationName());
  number("LoginOperatorId", entry.LoginOperatorId());
  text("LoginOperatorPwd", entry.LoginOperatorPwd());
  number("SSCustomerId", s.SSCustomerId);
  number("AccountStartYear", s.AccountStartYear);
  text("AccountStartDate", s.AccountStartDate);
  text("OrganizationEndDate", s.OrganizationEndDate);
  number("OrganizationThisYear", s.OrganizationThisYear);
  number("OrganizationThisPeriod", s.OrganizationThisPeriod);
  number("OrganizationThisHalfYear", s.OrganizationThisHalfYear);
  number("OrganizationThisQuarter", s.OrganizationThisQuarter);
  number("NaturalCurrencyId", s.NaturalCurrencyId);
  number("OrganizationIsDetail", s.OrganizationIsDetail);
  number("OrganizationLevel", s.OrganizationLevel);
  text("AccountKey", s.AccountKey);

  const auto b = entry.Business();
  number("AccountType", b->AccountType());
  text("AccountServer", b->AccountServer());
  text("AccountUserID", b->AccountUserID());
  text("AccountName", b->AccountName());
  text("AccountVersion", b->AccountVersion());
  text("AccountUnitCode", b->AccountUnitCode());
  number("AccountProperty", b->AccountProperty());
  number("Business.GroupDBType", b->GroupDBType());
  number("DiscountRateDec", b->DiscountRateDec());
  number("PriceDec", b->PriceDec());
  number("QuantityDec", b->QuantityDec());
  number("VersionType", b->VersionType());
  number("CurrencyID", b->CurrencyID());
  text("CurrencyCode", b->CurrencyCode());
  text("CurrencyName", b->CurrencyName());
  number("NaturalCurDec", b->NaturalCurDec());
  number("TradeID", b->TradeID());
  text("AccountSystem", b->AccountSystem());
  text("ApplicationLabel", b->ApplicationLabel());
  text("GAUnitCode", b->GAUnitCode());
  text("MessageServer", b->MessageServer());
  text("Notes", b->Notes());
  text("OldAccountSystem", b->OldAccountSystem());
  text("Business.StartDate", b->StartDate());
  text("TaxType", b->TaxType());
  text("UserName", b->UserName());
  text("Version", b->Version());
  text("DynPwdSvrIP", b->DynPwdSvrIP());
  text("DynPwdSvrPort", b->DynPwdSvrPort());

  const auto o = entry.LoginOrganization();
  number("OrganizationID", o->OrganizationID());
  text("OrganizationCode", o->OrganizationCode());
  text("OrganizationName", o->OrganizationName());
  text("OrganizationFullName", o->OrganizationFullName());
  number("OrganizationProperty", o->OrganizationProperty());
  number("Level", o->Level());
  text("CreateDate", o->CreateDate());
  text("StartDate", o->StartDate());
  text("BeginDate", o->BeginDate());
  text("EndDate", o->EndDate());
  number("ThisYear", o->ThisYear());
  number("ThisPeriod", o->ThisPeriod());
  number("IsCenter", o->IsCenter());
  number("IsDetail", o->IsDetail());
  number("IsInitialized", o->IsInitialized());
  number("IsVoucher", o->IsVoucher());
  number("IsRoot", o->IsRoot());
  number("ParentLevelOrganizationId", o->ParentLevelOrganizationId());
  text("PrevLevelOrganizationId", o->PrevLevelOrganizationId());
  text("NextLevelOrganizationId", o->NextLevelOrganizationId());
  text("NextLevelDirectOrganizationID", o->NextLevelDirectOrganizationID());
  text("LowerOrganizationId", o->LowerOrganizationId());
  number("ThisQuarter", o->ThisQuarter());
  number("ThisHalfYear", o->ThisHalfYear());
  number("Organization.GroupDBType", o->GroupDBType());

  const auto p = entry.LoginOperator();
  number("OperatorId", p->OperatorId());
  text("OperatorCode", p->OperatorCode());
  text("OperatorName", p->OperatorName());
  text("Password", p->Password());
  number("DepartmentId", p->DepartmentId());
  number("OperatorGroupId", p->OperatorGroupId());
  text("OperatorGroupName", p->OperatorGroupName());
  number("RoleID", p->RoleID());
  text("TokenSN", p->TokenSN());
  number("UseStcPwd", p->UseStcPwd());
  number("Operator.OrganizationId", p->OrganizationId());

  const auto c = entry.CustomerSs();
  number("CustomerID", c->CustomerID());
  text("CustomerCode", c->CustomerCode());
  text("CustomerName", c->CustomerName());
  text("FullName", c->FullName());
  number("Customer.IsInActive", c->IsInActive());
  return seen;
}

}  // namespace fetchkit::test
