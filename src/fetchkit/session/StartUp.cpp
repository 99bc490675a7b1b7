#include "fetchkit/session/StartUp.h"

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/CustomerSs.h"
#include "fetchkit/session/model/HostLogin.h"
#include "fetchkit/session/model/Operator.h"
#include "fetchkit/session/model/Organization.h"
#include "fetchkit/session/model/RecordLoading.h"

namespace fetchkit::MAction {
namespace {

template <class Read>
auto FromAccountLogin(const Session& session, Read&& read) {
  const auto login = ContextOf(session)->AccountLogin();
  return read(Present(login, u"AccountLogin"));
}

template <class Read>
auto FromLogin(const Session& session, Read&& read) {
  const auto login = ContextOf(session)->LoginContext();
  return read(Present(login, u"LoginContext"));
}

// One assignment of start-up: a step of its own, which leaves the field alone when it fails.
template <class Field, class Read>
void Assign(Session& session, TextView what, Field& field, Read&& read) {
  LoadPart(session.HostLoad, what, [&] { field = read(); });
}

// Who logs in, as the host has it now; zeros and empty texts for what cannot be read.
struct Identity {
  std::int32_t accountType = 0;
  Text accountServer;
  Text accountUserId;
  Text accountKey;
  std::int32_t organizationId = 0;
  std::int32_t operatorId = 0;
  double customerId = 0;  // compared as read; rounded only when it is stored
};

Identity ReadIdentity(Session& session) {
  Identity identity;
  Assign(session, u"Initialize: account type", identity.accountType,
         [&] { return ReadAccountType(session); });
  Assign(session, u"Initialize: account server", identity.accountServer, [&] {
    return FromAccountLogin(session, [](auto& login) { return ToText(login.ServerName()); });
  });
  Assign(session, u"Initialize: account user", identity.accountUserId, [&] {
    return FromAccountLogin(session, [](auto& login) { return ToText(login.UserId()); });
  });
  identity.accountKey =
      Join(identity.accountType, u"$", identity.accountServer, u"$", identity.accountUserId);
  Assign(session, u"Initialize: organization id", identity.organizationId, [&] {
    return FromLogin(session, [](auto& login) { return ToLong(login.OrganizationId()); });
  });
  Assign(session, u"Initialize: operator id", identity.operatorId, [&] {
    return FromLogin(session, [](auto& login) { return ToLong(login.OperatorId()); });
  });
  Assign(session, u"Initialize: service customer id", identity.customerId, [&] {
    return FromLogin(
        session, [](auto& login) { return LeadingNumber(ToText(login.Item(u"#SSCustomerID"))); });
  });
  return identity;
}

// Against the stored values, before any of them is overwritten. Whoever belongs to what changed
// has changed.
void FindChanges(Session& session, const Identity& now) {
  session.AccountChanged = now.accountKey != session.AccountKey;
  session.OrganizationChanged =
      session.AccountChanged || now.organizationId != session.LoginOrganizationId;
  session.OperatorChanged =
      session.OrganizationChanged || now.operatorId != session.LoginOperatorId;
  session.CustomerChanged =
      session.OperatorChanged || NumberText(now.customerId) != NumberText(session.SSCustomerId);
  // Before the new ids are stored: whatever cuts this Initialize short, the next one loads them.
  session.AccountLoad.due |= session.AccountChanged;
  session.OrganizationLoad.due |= session.OrganizationChanged;
  session.OperatorLoad.due |= session.OperatorChanged;
  session.CustomerLoad.due |= session.CustomerChanged;
}

// Whether the host told its login date, readable or not.
bool StoreLogin(Session& session, const Identity& now) {
  session.AccountKey = now.accountKey;
  session.HostLoad.cutShort = false;
  Assign(session, u"Initialize: LoginDate", session.LoginDate, [&] {
    return FromLogin(session, [](auto& login) { return ToDateText(login.LoginDate()); });
  });
  const bool dateTold = !session.HostLoad.cutShort;
  // Read once more rather than taken from now: a read that failed must leave the old id.
  Assign(session, u"Initialize: LoginOrganizationId", session.LoginOrganizationId, [&] {
    return FromLogin(session, [](auto& login) { return ToLong(login.OrganizationId()); });
  });
  Assign(session, u"Initialize: LoginOperatorId", session.LoginOperatorId, [&] {
    return FromLogin(session, [](auto& login) { return ToLong(login.OperatorId()); });
  });
  Assign(session, u"Initialize: LoginOperatorPwd", session.LoginOperatorPwd,
         [&] { return FromLogin(session, [](auto& login) { return ToText(login.Password()); }); });
  Assign(session, u"Initialize: SSCustomerId", session.SSCustomerId,
         [&] { return ToLong(now.customerId); });
  return dateTold;
}

void TakeCopies(Session& session, const fetchkit::Business& business,
                const Organization& organization) {
  session.AccountStartDate = business.StartDate();
  // Not an empty date's year: an account without a start date keeps the year that stood there.
  Step(u"Initialize: AccountStartYear", [&] {
    session.AccountStartYear = static_cast<std::int16_t>(YearOf(ToDate(session.AccountStartDate)));
  });
  session.OrganizationEndDate = organization.EndDate();
  session.OrganizationThisYear = organization.ThisYear();
  session.OrganizationThisPeriod = organization.ThisPeriod();
  session.OrganizationThisHalfYear = organization.ThisHalfYear();
  session.OrganizationThisQuarter = organization.ThisQuarter();
  session.NaturalCurrencyId = business.CurrencyID();
  session.OrganizationIsDetail = organization.IsDetail();
  session.LoginOrganizationCode = organization.OrganizationCode();
  session.LoginOrganizationName = organization.OrganizationName();
  session.OrganizationLevel = organization.Level();
}

}  // namespace

void Initialize(Session& session, const SessionConnectionPtr& connection) {
  const HostCall call;
  session.InitializeEnded = false;
  session.HostLoad = RecordLoad();
  LoadPart(session.HostLoad, u"Initialize: connection", [&] {
    Present(connection, u"connection object");
    session.Connection = connection;
  });
  // A host that is being read may call back with another connection.
  const SessionConnectionPtr running = session.Connection;
  const Identity now = ReadIdentity(session);
  FindChanges(session, now);
  const bool dateTold = StoreLogin(session, now);
  const bool organizationDue = session.OrganizationLoad.due;

  // The keys hold the new ids, so a new login gets fresh objects and an earlier one finds its own.
  const auto business = Business(session);
  const auto organization = LoginOrganization(session);
  const auto loginOperator = LoginOperator(session);
  const auto organizationRight = OrganizationRight(session);
  const auto operatorRight = OperatorRight(session);
  const auto customer = SSCustomer(session);

  LoadBusiness(session, *business, now.accountType, now.accountServer, now.accountUserId);
  LoadOrganization(session, *organization);
  // Its calendar is that of the login date.
  if (!dateTold) session.OrganizationLoad.due |= organizationDue;
  organization->GroupDBType(business->GroupDBType());
  LoadOperator(session, *loginOperator);
  loginOperator->OrganizationId(session.LoginOrganizationId);
  loginOperator->OperatorId(session.LoginOperatorId);
  organizationRight->SetOrganization(organization);
  operatorRight->SetOperator(loginOperator);
  LoadPart(session.HostLoad, u"Initialize: service customer's account type",
           [&] { LoadCustomer(session, *customer, ReadAccountType(session)); });
  TakeCopies(session, *business, *organization);
  session.InitializeEnded = true;
}

LoginState LoginStateOf(const Session& session) {
  LoginState state;
  bool whole = session.InitializeEnded;
  if (!whole) state.failedSteps.emplace_back(u"Interface.Initialize");
  for (const RecordLoad* load : {&session.HostLoad, &session.AccountLoad, &session.OrganizationLoad,
                                 &session.OperatorLoad, &session.CustomerLoad}) {
    whole = whole && !load->incomplete;
    state.failedSteps.insert(state.failedSteps.end(), load->failed.begin(), load->failed.end());
  }
  const bool some =
      session.AccountLoad.found || session.OrganizationLoad.found || session.OperatorLoad.found;
  state.extent = whole  ? LoginState::Extent::Whole
                 : some ? LoginState::Extent::Partial
                        : LoginState::Extent::None;
  return state;
}

}  // namespace fetchkit::MAction
