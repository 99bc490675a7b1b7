#include "fetchkit/rights/OrganizationRight.h"

#include <algorithm>

#include "activity/SampleCalendar.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/model/Business.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

class OrganizationRights : public LoggedInTest {
 protected:
  const Text kAllotted =
      u"SELECT lngKeyID,blnUse FROM OrgCodeAllot WHERE lngOrganizationID = 20 AND "
      u"Upper(strTableName) = 'DEPARTMENT'";
  const Text kProbe = u"Select 1 From ACC01.OrgCodeAllot Where 1=0";
  const Text kCertain = u"Select 1 From ACC01.Organization Where 1=0";
  const std::string kNothing = "not all; 0; 0; 1=0";
  const std::string kEverything = "all, 4, 12; ; 12,4,99,7; ";

  OrganizationRights() {
    MAction::Business(session())->AccountUserID(u"ACC01");
    organization_->OrganizationID(20);
  }

  static Answer Codes(std::vector<std::vector<Value>> codes) {
    return Rows({u"lngKeyID", u"blnUse"}, std::move(codes));
  }

  // Everything a new object says of the table, and says again.
  std::string AllAnswers() {
    OrganizationRight rights;
    rights.SetOrganization(organization_);
    const auto ask = [&] {
      return ToUtf8(Join(rights.HaveAllCodeUseRight(u"Department") ? u"all" : u"not all",
                         rights.IsCanDoForActivity(u"department", 4) ? u", 4" : u"",
                         rights.IsCanDoForActivity(u"DEPARTMENT", 12) ? u", 12" : u"", u"; ",
                         rights.GetAllotItem(u"Department"), u"; ",
                         rights.GetAllotItem2(u"Department", u"12,4,99,7"), u"; ",
                         rights.GetAllCodeUseRightSql(u"Department")));
    };
    const std::string first = ask();
    EXPECT_EQ(ask(), first) << "the second time";
    return first;
  }

  std::shared_ptr<Organization> organization_ = std::make_shared<Organization>();
};

TEST_F(OrganizationRights, AnswersOfOneStatement) {
  const std::string condition =
      "lngDepartmentID IN (SELECT lngKeyID FROM OrgCodeAllot WHERE lngOrganizationID = 20 AND "
      "Upper(strTableName) = 'DEPARTMENT' AND blnUse = 1)";
  Table<Answer, std::string>{
      {"nothing allotted: everything", Codes({}), "all, 4, 12; ; 12,4,99,7; "},
      {"some", Codes({{7, 1}, {4, 1}, {12, 0}}), "not all, 4; 4,7; 4,7; " + condition},
      {"all of them only to be seen", Codes({{4, 0}}), "not all; 0; 0; " + condition},
  }
      .Check([&](const Answer& answer, const std::string& expected) {
        host_->On(kAllotted, answer);
        EXPECT_EQ(AllAnswers(), expected);
        EXPECT_EQ(host_->TakeSent(), std::vector{ToUtf8(kAllotted)});
      });
  OrganizationRight rights;
  rights.SetOrganization(organization_);
  EXPECT_EQ(rights.GetAllotItem2(u"Department", u"4,x"), u"0") << "no number";
}

// That faults open nothing is tried by the demo host's tests with every operation.
TEST_F(OrganizationRights, NothingOpensWithoutARowOrWhenNobodySaysWhetherThereIsOne) {
  host_->unsaid = true;
  host_->On(kAllotted, Codes({}));
  EXPECT_EQ(AllAnswers(), kNothing);
  host_->unsaid = false;
  organization_->OrganizationID(0);
  EXPECT_EQ(AllAnswers(), kNothing);
  organization_.reset();
  EXPECT_EQ(AllAnswers(), kNothing);
}

TEST_F(OrganizationRights, OnlyAnAccountThatKnowsNoAllotmentIsWithoutLimits) {
  for (const bool dead : {false, true}) {
    session().ActivityCaches.reset();
    host_->On(kAllotted, Refused());
    host_->On(kProbe, Throws());
    host_->On(kCertain, dead ? Refused() : Rows({u"1"}, {}));
    RecordingSink sink;
    EXPECT_EQ(AllAnswers(), dead ? kNothing : kEverything);
    const auto sent = host_->TakeSent();
    if (dead) {
      EXPECT_EQ(std::count(sent.begin(), sent.end(), "static: " + ToUtf8(kProbe)), 1) << "kept";
      EXPECT_EQ(sink.failures.back().severity, Severity::Failure);
      EXPECT_EQ(sink.failures.back().statement, kAllotted);
      continue;
    }
    EXPECT_EQ(sent, (Sent{ToUtf8(kAllotted), "static: " + ToUtf8(kProbe),
                          "static: " + ToUtf8(kCertain)}));
    for (const Failure& told : sink.failures)
      EXPECT_EQ(told.severity, Severity::Note);
  }
}

}  // namespace
}  // namespace fetchkit::test
