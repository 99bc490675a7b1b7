// A login for tests of the services, and an accounting calendar that answers their statements.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fetchkit/activity/Activity.h"
#include "fetchkit/base/Date.h"
#include "support/FakeConnection.h"
#include "support/FakePlatform.h"
#include "support/Table.h"

namespace fetchkit::test {

// The date of "yyyy-MM-dd", optionally with a time; fails the test when it is none.
Date D(TextView text);
std::string Show(Date date);

struct PeriodRow {
  int year;
  int period;
  Text start;
  Text end;
};

// Organization 20's periods:
// 2001 and 2002 run from the 26th of a month to the 25th of the next (2001 begins on 2000-12-26);
// 2003 does too, and has a thirteenth period from 2003-12-26 to 2003-12-31;
// 2004 and 2005 are calendar months; 2006 has the periods 7 to 12 alone; 2007 is calendar months.
// Before, in the first half of 2006 and after 2007 there is no period.
std::vector<PeriodRow> SamplePeriods();

// The thread logged into organization 20 of the account "7$DBSRV$ACC01" on 2004-03-17, without a
// start-up; statements about periods are answered from the calendar, others only by host_->On.
class LoggedInTest : public testing::Test {
 protected:
  LoggedInTest();

  Session& session() { return MAction::CurrentSession(); }

  using Sent = std::vector<std::string>;

  // Statements since the last call.
  std::size_t Cost() { return host_->TakeSent().size(); }

  // Spoils each of the act's statements about periods in each way: the answer must be failed, no
  // further statement be sent and nothing of it be kept.
  void ExpectEveryFault(const std::function<std::string()>& act, const std::string& failed);

  FreshThread thread_;
  FakePlatform platform_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
  std::vector<PeriodRow> periods_ = SamplePeriods();
  Activity activity_;

 private:
  const Answer* AnswerFromCalendar(TextView sql);

  Answer answer_;
  Answer spoilt_;         // answers the statement about periods that is sent
  int untilSpoilt_ = -1;  // so many times from now (0: the next one)
};

}  // namespace fetchkit::test
