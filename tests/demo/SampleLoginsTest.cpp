// Start-up through the real statements, on the sample accounts.
#include <gtest/gtest.h>

#include <sstream>

#include "demo/LoggedIn.h"
#include "demo/commands/Commands.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::demo {
namespace {

std::string Described(Interface& entry) {
  const auto organization = entry.LoginOrganization();
  return ToUtf8(Join(organization->OrganizationCode(), u" | ",
                     organization->PrevLevelOrganizationId(), u" | ",
                     organization->NextLevelOrganizationId(), u" | ", organization->ThisYear(),
                     u".", organization->ThisPeriod(), u".", organization->ThisQuarter(), u".",
                     organization->ThisHalfYear(), u" | ", entry.LoginOperator()->OperatorCode(),
                     u" | ", entry.Business()->CurrencyCode(), u" ",
                     entry.Business()->NaturalCurDec(), u" | ", entry.CustomerSs()->FullName()));
}

TEST(SampleLogins, ReadWhatTheBooksHold) {
  static constexpr const char* kRows[][2] = {
      {"main", "01-02 | 1 | 4,5,12,6,7 | 2004.3.1.1 | 1001 | RMB 2 | 江南水泵制造有限公司"},
      {"customer", "01-02 | 1 | 4,5,12,6,7 | 2004.3.1.1 | 1001 | RMB 2 | "},
      {"root", "01 | 0 | 2,3,8,9,10,4,5,12,6,7 | 2004.3.1.1 | 1001 | RMB 2 | 江南水泵制造有限公司"},
      {"leaf", "01-02-05-01 | 1,3,5 | 0 | 2004.3.1.1 | 1001 | RMB 2 | 江南水泵制造有限公司"},
      {"trade", "010 | 0 | 0 | 2004.3.1.1 | 1001 | RMB 2 | 江南水泵制造有限公司"},
      {"date", "01-02 | 1 | 4,5,12,6,7 | 2003.12.4.2 | 1001 | RMB 2 | 江南水泵制造有限公司"},
      {"inactive", " | 0 | 0 | 0.0.0.0 |  | RMB 2 | 江南水泵制造有限公司"},
      {"departed", "01-02 | 1 | 4,5,12,6,7 | 2004.3.1.1 |  | RMB 2 | 江南水泵制造有限公司"},
      // A currency without a row still has two decimals.
      {"account", "01 | 0 | 2,3 | 2004.3.1.1 | P01 |  2 | 市职业技能鉴定所"},
  };
  Console quiet(stderr, ColourMode::Never);
  DemoSession session(quiet, false);
  for (const auto& [login, expected] : kRows) {
    SCOPED_TRACE(login);
    session.Switch(login);
    session.LogInAfresh();
    Interface& entry = session.entry();
    EXPECT_EQ(Described(entry), expected);
    EXPECT_EQ(session.connection()->openRecordsets(), 0);
    EXPECT_EQ(session.Count([&] { entry.Initialize(session.connection()); }), 0u);
    const LoginState state = entry.LoginState();
    const bool isWhole = TextView(u"inactive departed").find(FromUtf8(login)) == TextView::npos;
    EXPECT_EQ(state.extent, isWhole ? LoginState::Extent::Whole : LoginState::Extent::Partial);
    EXPECT_EQ(state.failedSteps.empty(), isWhole);
  }
  // The last account is an older one: its rights are those of an operator's groups.
  const auto rights = session.entry().LoginOperatorRight();
  EXPECT_TRUE(rights->UserRight(u"12,15"));
  EXPECT_FALSE(rights->UserRight(u"31"));
}

using Commands = LoggedIn;

TEST_F(Commands, AHealthyRunReportsNoFailure) {
  const CommonOptions options;
  std::istringstream nobody;
  EXPECT_EQ(RunLogin(console_, options), 0);
  EXPECT_EQ(RunRights(console_, options), 0);
  EXPECT_EQ(RunRights(console_, {.login = "account"}), 0);
  EXPECT_EQ(RunSettings(console_, options), 0);
  EXPECT_EQ(RunList(console_, options, {.where = {"金额 大于 100"}}), 0);
  EXPECT_EQ(RunFilter(console_, options, {}, nobody, false), 0);
  const std::string paper = Paper();
  EXPECT_EQ(paper.find("failed: "), std::string::npos) << paper;
}

TEST_F(Commands, AFailureIsShownWithTheDatabasesOwnWords) {
  session_.Run([&] {
    EXPECT_FALSE(session_.entry().Activity()->TableNameExists(u"Nowhere"));
    EXPECT_EQ(session_.entry().Activity()->GetNewID(u"Nowhere"), 0);
  });
  const std::string paper = Paper();
  EXPECT_NE(paper.find("failed: Activity.GetNewID: The database refused the statement. There is "
                       "no sequence"),
            std::string::npos)
      << paper;
  EXPECT_NE(paper.find("1 failure"), std::string::npos) << "told once";
}

TEST_F(Commands, ALoginThatDoesNotComeInIsSaidInWords) {
  EXPECT_EQ(RunLogin(console_, {.login = "inactive"}), 1);
  const std::string paper = Paper();
  for (const char* said : {"The login is partial", "organization: no row", "--login NAME"})
    EXPECT_NE(paper.find(said), std::string::npos) << said;
  for (const char* unsaid : {"LoginOrganization:", " · "})
    EXPECT_EQ(paper.find(unsaid), std::string::npos) << "no names where there are none";
}

TEST(Console, WidthsCountChineseGlyphsTwice) {
  EXPECT_EQ(DisplayWidth("ab部门"), 6);
  EXPECT_EQ(CutToWidth("ab部门", 6), "ab部门");
  EXPECT_EQ(CutToWidth("ab部门c", 6), "ab部…") << "no half glyph";
  EXPECT_EQ(CutToWidth("", 3), "");
}

}  // namespace
}  // namespace fetchkit::demo
