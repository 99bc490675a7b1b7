#include "session/SampleBooks.h"

#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::test {

const std::vector<std::pair<Text, Answer>>& FirstLogin() {
  static const std::vector<std::pair<Text, Answer>> login = {
      {u"SELECT "
       u"Business.bytAccountProperty,Business.bytGroupDBType,Business.bytDiscountRateDec,Business."
       u"bytPriceDec,Business.bytQuantityDec,Business.bytType,Business.lngCurrencyID,Currencys."
       u"strCurrencyCode,Currencys.strCurrencyName,Business.lngTradeID,Business.strAccountSystem,"
       u"Business.strApplicationLabel,Nvl(Business.strGAUnitCode,' ') As "
       u"strGAUnitCode,Business.strMessageServer,Business.strNotes,Business.strOldAccountSystem,"
       u"Business.strStartDate,Business.strTaxType,Business.strUserName,Business.strVer,Business."
       u"strDynPwdSvrIP,Business.strDynPwdSvrPort,Nvl(Currencys.bytCurrencydec,2) As "
       u"bytCurrencydec "
       u"FROM Business,Currencys WHERE Business.lngCurrencyID = Currencys.lngCurrencyID(+)",
       Rows({u"bytAccountProperty",  u"bytGroupDBType",   u"bytDiscountRateDec",
             u"bytPriceDec",         u"bytQuantityDec",   u"bytType",
             u"lngCurrencyID",       u"strCurrencyCode",  u"strCurrencyName",
             u"lngTradeID",          u"strAccountSystem", u"strApplicationLabel",
             u"strGAUnitCode",       u"strMessageServer", u"strNotes",
             u"strOldAccountSystem", u"strStartDate",     u"strTaxType",
             u"strUserName",         u"strVer",           u"strDynPwdSvrIP",
             u"strDynPwdSvrPort",    u"bytCurrencydec"},
            {{1,
              1,
              2,
              4,
              3,
              5,
              7,
              u"RMB",
              u"人民币",
              9,
              u"企业会计制度",
              u"集团账",
              u" ",
              u"MSG01",
              u"备注",
              u"旧制度",
              u"2003.1.1",
              u"一般纳税人",
              u"东方集团",
              u"8.50",
              u"10.0.0.1",
              u"0443",
              2}})},
      {u"SELECT strAccountName, strVersion, strGaUnitCode FROM System.GaBaseInfo WHERE "
       u"Upper(strUserName) = 'ACC01'",
       Rows({u"strAccountName", u"strVersion", u"strGaUnitCode"},
            {{u"东方集团账套", u"8.5", u"DF"}})},
      {u"SELECT "
       u"lngOrganizationID,strOrganizationCode,strOrganizationName,strFullName,intlevel,strDate,"
       u"strStartDate,blnIsBase,blnIsCache,blnIsCenter,blnIsControl,blnIsDetail,blnIsInActive,"
       u"blnIsInitialized,blnIsVoucher FROM Organization WHERE blnIsInActive = 0 AND "
       u"blnIsInitialized = 1 AND lngOrganizationID = 20 ORDER BY strOrganizationCode",
       Rows({u"lngOrganizationID", u"strOrganizationCode", u"strOrganizationName", u"strFullName",
             u"intlevel", u"strDate", u"strStartDate", u"blnIsBase", u"blnIsCache", u"blnIsCenter",
             u"blnIsControl", u"blnIsDetail", u"blnIsInActive", u"blnIsInitialized",
             u"blnIsVoucher"},
            {{20, u"01-02", u"华东公司", u"东方集团华东公司", 2, u"2002/12/31", u"2003-01-01", 0, 0,
              1, 0, 1, 0, 1, 1}})},
      {u"SELECT h.lngOrganizationId FROM Organization h,Organization r WHERE r.strOrganizationCode "
       u"LIKE h.strOrganizationCode || '-%' AND h.lngOrganizationId <> r.lngOrganizationId AND "
       u"r.lngOrganizationId = 20 ORDER BY h.intlevel",
       Rows({u"lngOrganizationId"}, {{8}, {10}})},
      {u"SELECT r.lngOrganizationId,r.intLevel FROM Organization h,Organization r WHERE "
       u"r.strOrganizationCode LIKE h.strOrganizationCode || '-%' AND h.lngOrganizationId <> "
       u"r.lngOrganizationId AND h.lngOrganizationId = 20 ORDER BY r.intLevel,r.lngOrganizationId",
       Rows({u"lngOrganizationId", u"intLevel"}, {{31, 3}, {30, 3}, {40, 4}})},
      {u"SELECT strStartDate,strEndDate FROM AccountPeriod WHERE lngOrganizationId = 20 ORDER BY "
       u"intYear,bytPeriod",
       Rows({u"strStartDate", u"strEndDate"}, {{u"2003-01-01", u"2003-01-31"},
                                               {u"2004-03-01", u"2004-03-31"},
                                               {u"2005-12-01", u"2005-12-31"}})},
      {u"SELECT intYear,bytPeriod FROM AccountPeriod WHERE lngOrganizationId = 20 AND strEndDate "
       u">= "
       u"'2004-03-17' AND strStartDate <= '2004-03-17'",
       Rows({u"intYear", u"bytPeriod"}, {{2004, 3}})},
      // Another year than the period's, as where an organization changed its calendar.
      {u"SELECT intYear,bytquarter FROM AccountQuarter WHERE lngOrganizationId = 20 AND strEndDate "
       u">= '2004-03-17' AND strStartDate <= '2004-03-17'",
       Rows({u"intYear", u"bytquarter"}, {{1999, 1}})},
      {u"SELECT intYear,bythalf FROM AccountHalf WHERE lngOrganizationId = 20 AND strEndDate >= "
       u"'2004-03-17' AND strStartDate <= '2004-03-17'",
       Rows({u"intYear", u"bythalf"}, {{1999, 2}})},
      {u"SELECT "
       u"Operator.lngOperatorId,Operator.strOperatorCode,Operator.strOperatorName,Nvl(Operator."
       u"strPassword,'') As "
       u"strPassword,Operator.lngDepartmentID,Operator.lngOperatorGroupID,Operator.lngRoleID,"
       u"Operator.strTokenSN,Operator.blnUseDynPwd,Operator.blnUseStcPwd,Operator.blnIsSystem,"
       u"Operator.blnIsInActive,OperatorGroup.strOperatorGroupName FROM "
       u"Operator,OperatorGroup,OrgOperatorAllot WHERE Operator.blnIsInActive = 0 AND "
       u"Operator.lngOperatorId = OrgOperatorAllot.lngOperatorId AND Operator.lngOperatorGroupId = "
       u"OperatorGroup.lngOperatorGroupId AND OrgOperatorAllot.lngOrganizationId = 20 AND "
       u"Operator.lngOperatorId = 3 ORDER BY strOperatorCode",
       Rows(
           {u"lngOperatorId", u"strOperatorCode", u"strOperatorName", u"strPassword",
            u"lngDepartmentID", u"lngOperatorGroupID", u"lngRoleID", u"strTokenSN", u"blnUseDynPwd",
            u"blnUseStcPwd", u"blnIsSystem", u"blnIsInActive", u"strOperatorGroupName"},
           {{3, u"003", u"李会计", u"00123 ", 5, 2, 4, u" T-1 ", 0, 1, 0, 0, u"会计组"}})},
      {u" SELECT lngSSCustomerId,strSSCustomerCode,strSSCustomerName,strFullName, blnIsInActive  "
       u"FROM SSCustomer  WHERE lngSSCustomerId = 12 ORDER BY strSSCustomerCode",
       Rows({u"lngSSCustomerId", u"strSSCustomerCode", u"strSSCustomerName", u"strFullName",
             u"blnIsInActive"},
            {{12, u"C12", u"蓝天", u"蓝天股份", 1}})},
  };
  return login;
}

std::shared_ptr<FakeConnection> GoodHost() {
  auto host = std::make_shared<FakeConnection>();
  for (const auto& [sql, answer] : FirstLogin())
    host->On(sql, answer);
  return host;
}

namespace {

std::string Shown(const Text& value) {
  return ToUtf8(value);
}
std::string Shown(long value) {
  return std::to_string(value);
}

}  // namespace

// clang-format off
#define RECORD(record, member) \
  #record "." #member, [](const Records& of) { return Shown(of.record->member()); }
#define SESSION(member) #member, [](const Records& of) { return Shown(of.Session->member); }

const std::vector<LoginValue>& LoginValues() {
  static const std::vector<LoginValue> values = {
      {RECORD(Interface, LoginDate), "2004-03-17", kFromHost},
      {RECORD(Interface, LoginOrganizationId), "20", kFromHost},
      {RECORD(Interface, LoginOperatorId), "3", kFromHost},
      {RECORD(Interface, LoginOperatorPwd), "secret", kFromHost},
      {SESSION(SSCustomerId), "12", kFromHost},
      {SESSION(AccountKey), "7$DBSRV$ACC01", kFromHost},
      {RECORD(Business, AccountType), "7", kFromHost},
      {RECORD(Business, AccountServer), "DBSRV", kFromHost},
      {RECORD(Business, AccountUserID), "ACC01", kFromHost},
      {RECORD(Operator, OperatorId), "3", kFromHost},
      {RECORD(Operator, OrganizationId), "20", kFromHost},
      {RECORD(Organization, IsRoot), "0", kFromHost},
      {RECORD(Business, AccountProperty), "1", kSettings, "0"},
      {RECORD(Organization, OrganizationProperty), "2", kSettings, "0"},
      {RECORD(Business, GroupDBType), "1", kSettings, "0"},
      {RECORD(Organization, GroupDBType), "1", kSettings, "0"},
      {RECORD(Business, DiscountRateDec), "2", kSettings, "0"},
      {RECORD(Business, PriceDec), "4", kSettings, "0"},
      {RECORD(Business, QuantityDec), "3", kSettings, "0"},
      {RECORD(Business, VersionType), "5", kSettings, "0"},
      {RECORD(Business, CurrencyID), "7", kSettings, "0"},
      {SESSION(NaturalCurrencyId), "7", kSettings, "0"},
      {RECORD(Business, CurrencyCode), "RMB", kSettings},
      {RECORD(Business, CurrencyName), "人民币", kSettings},
      {RECORD(Business, NaturalCurDec), "2", kSettings, "0"},
      {RECORD(Business, TradeID), "9", kSettings, "0"},
      {RECORD(Business, AccountSystem), "企业会计制度", kSettings},
      {RECORD(Business, ApplicationLabel), "集团账", kSettings},
      {RECORD(Business, GAUnitCode), " ", kSettings},
      {RECORD(Business, MessageServer), "MSG01", kSettings},
      {RECORD(Business, Notes), "备注", kSettings},
      {RECORD(Business, OldAccountSystem), "旧制度", kSettings},
      {RECORD(Business, StartDate), "2003-01-01", kSettings},
      {SESSION(AccountStartDate), "2003-01-01", kSettings},
      {SESSION(AccountStartYear), "2003", kSettings, "0"},
      {RECORD(Business, TaxType), "一般纳税人", kSettings},
      {RECORD(Business, UserName), "东方集团", kSettings},
      {RECORD(Business, Version), "8.50", kSettings},
      {RECORD(Business, DynPwdSvrIP), "10.0.0.1", kSettings},
      {RECORD(Business, DynPwdSvrPort), "0443", kSettings},
      {RECORD(Business, AccountName), "东方集团账套", kAccountNames},
      {RECORD(Business, AccountVersion), "8.5", kAccountNames},
      {RECORD(Business, AccountUnitCode), "DF", kAccountNames},
      {RECORD(Organization, OrganizationID), "20", kOrganization, "0"},
      {RECORD(Organization, OrganizationCode), "01-02", kOrganization},
      {RECORD(Interface, LoginOrganizationCode), "01-02", kOrganization},
      {RECORD(Organization, OrganizationName), "华东公司", kOrganization},
      {RECORD(Interface, LoginOrganizationName), "华东公司", kOrganization},
      {RECORD(Organization, OrganizationFullName), "东方集团华东公司", kOrganization},
      {RECORD(Organization, Level), "2", kOrganization, "0"},
      {SESSION(OrganizationLevel), "2", kOrganization, "0"},
      {RECORD(Organization, CreateDate), "2002-12-31", kOrganization},
      {RECORD(Organization, StartDate), "2003-01-01", kOrganization},
      {RECORD(Organization, IsCenter), "1", kOrganization, "0"},
      {RECORD(Organization, IsDetail), "1", kOrganization, "0"},
      {SESSION(OrganizationIsDetail), "1", kOrganization, "0"},
      {RECORD(Organization, IsInitialized), "1", kOrganization, "0"},
      {RECORD(Organization, IsVoucher), "1", kOrganization, "0"},
      {RECORD(Organization, ParentLevelOrganizationId), "10", kAncestors, "0"},
      {RECORD(Organization, PrevLevelOrganizationId), "8,10", kAncestors, "0"},
      {RECORD(Organization, NextLevelOrganizationId), "31,30,40", kDescendants, "0"},
      {RECORD(Organization, NextLevelDirectOrganizationID), "31,30", kDescendants, "0"},
      {RECORD(Organization, LowerOrganizationId), "20,31,30,40", kDescendants, "20,0"},
      {RECORD(Organization, BeginDate), "2003-01-01", kBounds},
      {RECORD(Organization, EndDate), "2005-12-31", kBounds},
      {SESSION(OrganizationEndDate), "2005-12-31", kBounds},
      {RECORD(Organization, ThisYear), "2004", kPeriod, "0"},
      {SESSION(OrganizationThisYear), "2004", kPeriod, "0"},
      {RECORD(Organization, ThisPeriod), "3", kPeriod, "0"},
      {SESSION(OrganizationThisPeriod), "3", kPeriod, "0"},
      {RECORD(Organization, ThisQuarter), "1", kQuarter, "0"},
      {SESSION(OrganizationThisQuarter), "1", kQuarter, "0"},
      {RECORD(Organization, ThisHalfYear), "2", kHalf, "0"},
      {SESSION(OrganizationThisHalfYear), "2", kHalf, "0"},
      {RECORD(Operator, OperatorCode), "003", kOperator},
      {RECORD(Operator, OperatorName), "李会计", kOperator},
      {RECORD(Operator, Password), "123", kOperator},
      {RECORD(Operator, DepartmentId), "5", kOperator, "0"},
      {RECORD(Operator, OperatorGroupId), "2", kOperator, "0"},
      {RECORD(Operator, OperatorGroupName), "会计组", kOperator},
      {RECORD(Operator, RoleID), "4", kOperator, "0"},
      {RECORD(Operator, TokenSN), "T-1", kOperator},
      {RECORD(Operator, UseStcPwd), "1", kOperator, "0"},
      {RECORD(CustomerSs, CustomerID), "12", kCustomer, "0"},
      {RECORD(CustomerSs, CustomerCode), "C12", kCustomer},
      {RECORD(CustomerSs, CustomerName), "蓝天", kCustomer},
      {RECORD(CustomerSs, FullName), "蓝天股份", kCustomer},
      {RECORD(CustomerSs, IsInActive), "1", kCustomer, "0"},
  };
  return values;
}

// clang-format on

State Snapshot() {
  Interface entry;
  const Records records{&entry,
                        &MAction::CurrentSession(),
                        entry.Business(),
                        entry.LoginOrganization(),
                        entry.LoginOperator(),
                        entry.CustomerSs()};
  State seen;
  for (const LoginValue& value : LoginValues())
    seen[value.name] = value.read(records);
  return seen;
}

}  // namespace fetchkit::test
