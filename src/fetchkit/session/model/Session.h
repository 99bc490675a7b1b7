// The session: everything that the calling thread's login means.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit {

class Activity;
class FormView;
class ListSet;

// What became of loading one of the login's records (RecordLoading.h).
struct RecordLoad {
  bool due = false;          // it has changed, or its loader was cut short: to be loaded
  bool cutShort = false;     // by what may go well the next time
  bool found = false;        // the database had a row for it
  bool incomplete = false;   // something of it is missing, whether or not failed could be filled
  bool seeksColumn = false;  // the host is looking for a column: an error is for good
  std::vector<Text> failed;  // the steps that brought less than they should
};

// One per thread; two threads share nothing. Empty texts and zeros until Interface.Initialize.
// Entry points fetch it once (MAction::CurrentSession) and pass it down.
struct Session : ThreadOwned {
  // What differs from the Initialize before, as found by the last one.
  bool AccountChanged = false;
  bool OrganizationChanged = false;
  bool OperatorChanged = false;
  bool CustomerChanged = false;

  // What became of the last Initialize; InitializeEnded is False before the first one.
  RecordLoad AccountLoad;
  RecordLoad OrganizationLoad;
  RecordLoad OperatorLoad;
  RecordLoad CustomerLoad;
  RecordLoad HostLoad;  // what the host itself tells: never due, the failing steps only
  bool InitializeEnded = false;
  bool ToldWithoutLogin = false;  // that a service was asked before the first one

  SessionConnectionPtr Connection;
  std::shared_ptr<Activity> ActivityObject;  // created on first use, survive every login
  std::shared_ptr<ListSet> ListSetObject;
  FormView* View = nullptr;  // who draws the dialogs; not owned, null for nobody

  Text LoginDate;  // "yyyy-MM-dd"
  std::int32_t LoginOrganizationId = 0;
  Text LoginOrganizationCode;
  Text LoginOrganizationName;
  std::int32_t LoginOperatorId = 0;
  Text LoginOperatorPwd;
  std::int32_t SSCustomerId = 0;

  // Copies taken at the end of every Initialize, so that services need not ask the records.
  std::int16_t AccountStartYear = 0;
  Text AccountStartDate;     // "yyyy-MM-dd"
  Text OrganizationEndDate;  // as stored, mostly "yyyy-MM-dd"
  std::int16_t OrganizationThisYear = 0;
  std::uint8_t OrganizationThisPeriod = 0;
  std::uint8_t OrganizationThisHalfYear = 0;
  std::uint8_t OrganizationThisQuarter = 0;
  std::int32_t NaturalCurrencyId = 0;
  bool OrganizationIsDetail = false;
  std::int16_t OrganizationLevel = 0;

  // Account type, server name and database user id joined by "$"; every cache key begins with it.
  Text AccountKey;

  // The session objects by class and key. They are never removed, so an earlier login finds its
  // own again. The class is in the key: classes share keys, and a database user's name may itself
  // hold a "$", so that "7$S$A$5" is an account as well as an account's organization.
  struct ObjectKey {
    std::type_index type;
    Text key;
    bool operator==(const ObjectKey&) const = default;
  };
  struct ObjectKeyHash {
    std::size_t operator()(const ObjectKey& of) const {
      return std::hash<Text>()(of.key) ^ of.type.hash_code();
    }
  };
  std::unordered_map<ObjectKey, std::shared_ptr<void>, ObjectKeyHash> ObjectCache;

  // The look-up caches of the services, created on first use; activity/ActivityCaches.h knows their
  // type.
  std::unique_ptr<ThreadOwned> ActivityCaches;
};

// What works on a session: its state and objects here, the host's login (HostLogin.h), the start-up
// (session/StartUp.h), and beside each class of session object the getter of the current login's
// one, such as MAction::OperatorRight in rights/OperatorRight.h. So only those who name a class
// include it.
namespace MAction {

// The calling thread's session, created on first use.
Session& CurrentSession();

// The same for a service whose answer depends on the login: the thread's diagnostics are told once
// when there was none, because the answer may look like one all the same.
Session& SessionOfLogin();

// The host's connection. Error (ObjectMissing) before the first Initialize.
const SessionConnectionPtr& ConnectionOf(const Session& session);

// The keys of what belongs to the current login's organization, and to its operator there. What
// belongs to its account has AccountKey.
Text OrganizationKey(const Session& session);
Text OperatorKey(const Session& session);

// The object of that class cached under the key; a new, empty one is added when there is none.
template <class Object>
std::shared_ptr<Object> Cached(Session& session, Text key) {
  auto& entry = session.ObjectCache[{typeid(Object), std::move(key)}];
  if (!entry) entry = std::make_shared<Object>();
  return std::static_pointer_cast<Object>(entry);
}

}  // namespace MAction
}  // namespace fetchkit
