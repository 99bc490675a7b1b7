// What the services remember of the database, per thread and login.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/session/model/Session.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::MActivity {

struct AccountYear {
  std::int16_t year = 0;  // 0: no accounting year contains the date
  Date begin;
  Date end;
};

struct AccountPeriod {
  std::int16_t period = 0;  // 0: no period contains the date
  Date begin;
  Date end;
};

struct DateRange {
  Date begin;
  Date end;
};

// A date keyword as it was asked for.
struct RangeKey {
  DateRule rule;
  double reference;  // serial of the reference date
  bool financial;

  bool operator==(const RangeKey&) const = default;
};
struct RangeKeyHash {
  std::size_t operator()(const RangeKey& key) const {
    return std::hash<double>()(key.reference) + static_cast<std::size_t>(key.rule) * 2 +
           (key.financial ? 1 : 0);
  }
};

// The caches of one account and organization.
struct LoginCaches {
  std::unordered_map<double, AccountYear> years;                 // by day
  std::unordered_map<double, AccountPeriod> periods;             // by day
  std::unordered_map<RangeKey, DateRange, RangeKeyHash> ranges;  // of those that ask the database
};

// Nothing is ever removed: what the accounting calendar and the schema said first holds for the
// session. An earlier login finds its own entries again.
class ActivityCaches : public ThreadOwned {
 public:
  // The session's caches, created on first use.
  static ActivityCaches& Of(Session& session);

  // Those of the account and organization that the session is logged into. Stays valid over later
  // logins.
  LoginCaches& ForLogin(const Session& session);

  // Whether the account's database took a probing statement; by the account key, ":" and the
  // statement.
  std::unordered_map<Text, bool> probes;

  // Decimals of amounts: of the currency of the account that formatted first, whatever logs in
  // later.
  std::optional<int> amountDecimals;

  // A login date text and the date that it was read as; reading a date text may cost more than all
  // the rest of a cached keyword.
  std::pair<Text, Date> loginDate;

 private:
  using Login = std::pair<Text, std::int32_t>;  // account key, organization id
  std::map<Login, LoginCaches> logins_;
  std::map<Login, LoginCaches>::value_type* last_ = nullptr;  // most calls are of the same login
};

}  // namespace fetchkit::MActivity
