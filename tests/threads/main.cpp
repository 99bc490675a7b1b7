// Many threads, each with a session, a host and calls of its own, at the same time: nothing but the
// installed platform is shared, and ThreadSanitizer sees that. Usage: fetchkit-threads [CALLS]
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>
#include <vector>

#include "fetchkit/base/ThreadState.h"
#include "support/EveryService.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

constexpr unsigned kThreads = 16;

// Every statement has two rows, a few are refused.
std::shared_ptr<FakeConnection> HostOf(std::mt19937& random) {
  auto host = std::make_shared<FakeConnection>();
  Answer rows = Rows({}, {{}, {}});
  rows.cell = [&random](TextView column) -> Value {
    if (EqualFolded(column, u"strFieldType")) return random() % 2 == 0 ? u"DOUBLE" : u"CODE";
    if (EqualFolded(column.substr(0, 3), u"str")) return u"2";
    if (column.find(u"Date") != Text::npos) return u"2004-03-17";
    return static_cast<std::int32_t>(random() % 4);
  };
  host->fallback = [&random, rows, refused = Refused()](TextView) {
    return random() % 50 == 0 ? &refused : &rows;
  };
  return host;
}

void Work(unsigned seed, int calls) {
  std::mt19937 random(seed);
  const auto organization = static_cast<std::int32_t>(20 + seed);
  const auto host = HostOf(random);
  host->login.organizationId = organization;
  Interface entry;
  for (int call = 0; call < calls; ++call) {
    if (call % 100 == 0) {
      host->login.operatorId = static_cast<std::int32_t>(random() % 3);
      entry.Initialize(host);
    }
    EXPECT_EQ(entry.LoginOrganizationId(), organization) << "another thread's session";
    CallService(entry, static_cast<std::uint32_t>(random()), u"Department",
                static_cast<std::int32_t>(random() % 100));
    EXPECT_EQ(host->openRecordsets, 0);
    host->TakeSent();
  }
  ReleaseThread();
}

}  // namespace
}  // namespace fetchkit::test

int main(int count, char** arguments) {
  const int calls = count > 1 ? std::atoi(arguments[1]) : 10000;
  std::vector<std::thread> threads;
  for (unsigned seed = 0; seed < fetchkit::test::kThreads; ++seed)
    threads.emplace_back(fetchkit::test::Work, seed, calls);
  for (std::thread& thread : threads)
    thread.join();
  const bool failed = testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed();
  std::printf("%u threads, %d calls each: %s\n", fetchkit::test::kThreads, calls,
              failed ? "FAILED" : "each kept to its own session");
  return failed ? 1 : 0;
}
