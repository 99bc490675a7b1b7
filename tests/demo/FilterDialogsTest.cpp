// The dialogs over the sample accounts, answered in a console.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "demo/LoggedIn.h"
#include "demo/commands/FilterUsers.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/dialogs/CodeLists.h"
#include "fetchkit/listset/ListSet.h"
#include "support/Lines.h"

namespace fetchkit::demo {
namespace {

class FilterDialogs : public LoggedIn {
 protected:
  bool Show(FormView& view, std::int32_t viewId = 101) {
    SetFormView(&view);
    set().ViewId(viewId);
    const bool confirmed = set().ShowFilter(0);
    SetFormView(nullptr);
    return confirmed;
  }
};

TEST_F(FilterDialogs, ScriptedUserFindsRows) {
  ScriptedUser user(console_);
  EXPECT_TRUE(Show(user));
  EXPECT_EQ(ToUtf8(set().ListPureWhere()),
            "(Voucher.strDate >= '2004-01-01' And Voucher.strDate <= '2004-03-31') And "
            "Department.lngDEPARTMENTID In(5,6) And VoucherDetail.dblDebit+VoucherDetail.dblCredit "
            "> 1000");
  const std::int64_t rows = Rows();
  EXPECT_GT(rows, 0);
  // What the dialog saved reads back as the same conditions and finds the same rows.
  const ListType saved = Settings(set().List());
  session_.LogInAfresh();
  EXPECT_TRUE(Settings(Load(101)).ListField == saved.ListField);
  EXPECT_EQ(Rows(), rows);
  EXPECT_THAT(Paper(),
              testing::HasSubstr(
                  "1\t凭证日期\t本季度\n2\t部门\t国内销售科 国际业务科\n3\t金额\t大于 1000\n"));
}

TEST_F(FilterDialogs, SavedOrConfirmedUnchangedIsTheSameList) {
  for (const auto& [view, confirms] : {std::pair(101, false), {101, true}, {102, false}}) {
    SCOPED_TRACE(view);
    session_.LogInAfresh();
    const ListType before = Settings(Load(view));
    const std::int64_t rows = Rows();
    EXPECT_GT(rows, 0);
    std::istringstream ok("o\n");
    AskedUser user(console_, ok);
    if (confirms)
      EXPECT_TRUE(Show(user, view));
    else
      set().SaveList();
    EXPECT_EQ(Rows(), rows);
    session_.LogInAfresh();
    EXPECT_TRUE(Settings(Load(view)) == before);
    EXPECT_EQ(Rows(), rows);
  }
}

TEST_F(FilterDialogs, AccountsByWhatTheyAreBrokenDownBy) {
  Load(103);
  set().SaveList();  // conditions of a list that was never saved are not found again
  std::istringstream lines("7\n单位\no\n");
  AskedUser user(console_, lines);
  EXPECT_TRUE(Show(user, 103));
  EXPECT_EQ(Rows(), 2);
  Load(103);
  EXPECT_EQ(ToUtf8(set().ListPureWhere()), "Account.blnIsCustomer=1 ");
  EXPECT_EQ(Rows(), 2);
}

TEST_F(FilterDialogs, AskedUser) {
  // Columns of view 103: 1 code, 2 name, 4 kind, 5 level, 6 account, 8 detail.
  // What it shows, the answers (one line each), what ListPureWhere is then; "-" for cancelled.
  for (const auto& [name, lines, where] : fetchkit::test::Lines<3>(R"(
between, by its beginning¦5/介/1/3/o/¦(Account.intLevel > 1 And Account.intLevel < 3)
a code by typing¦6/1131/o/¦Account.lngACCOUNTID = 7
several by the chooser¦4/选择/2/1/o/o/¦AccountType.strAccountTypeName In('损益','成本')
a refused value, then another¦5/大于/x/o/5/大于/2/o/¦Account.intLevel > 2
removed by its number¦8/2/5/零/d 8/o/¦(Account.intLevel Is Null or Account.intLevel=0)
cleared, OK by an empty line¦8/2/c//¦
cancelled¦8/2/q/¦-
the input ends¦8/2/5/¦-
a column and a word by initials¦f mx//s/o/¦decode(Account.blnIsDetail,1,'是','否') = '是'
found by its number, then all again¦f k/2/介/1/3/f/8/2/o/¦(Account.strAccountName > '1' And Account.strAccountName < '3') And decode(Account.blnIsDetail,1,'是','否') = '是'
codes searched in the chooser¦4/选择/f cb//f sy//o/o/¦AccountType.strAccountTypeName In('成本','损益')
all that a search finds, one taken back¦4/选择/f 成/a/t 1/f s//o/o/¦AccountType.strAccountTypeName = '损益'
left while a word is picked¦8/2/5/q/¦-
left while a value is typed¦5/大于/q/¦-
the letter itself¦2/等于/=q/o/¦Account.strAccountName = 'q'
nonsense¦77/d 9/-/8/zzz/8/99/q/¦-)")) {
    SCOPED_TRACE(name);
    std::string text = lines;
    std::replace(text.begin(), text.end(), '/', '\n');
    // First nothing is left of the row before.
    std::istringstream answers("c\no\n" + text);
    AskedUser user(console_, answers);
    EXPECT_TRUE(Show(user, 103));
    const bool cancelled = where == "-";
    EXPECT_EQ(Show(user, 103), !cancelled);
    EXPECT_EQ(ToUtf8(set().ListPureWhere()), cancelled ? "" : where);
    EXPECT_GE(Rows(), 0) << "the database takes the text";
  }
  std::istringstream none;
  AskedUser user(console_, none);
  EXPECT_TRUE(Show(user, 104)) << "nothing to filter";
}

// Each code table and enumeration of the sample views, and the tables that no view shows.
TEST_F(FilterDialogs, EveryListOpens) {
  class Walker : public ScriptedUser {
   public:
    using ScriptedUser::ScriptedUser;
    void ShowModal(frmFilter& form, std::int32_t) override {
      for (std::size_t i = 0; i < form.tvwFilter.Nodes().size(); ++i) {
        form.tvwFilter.UserClickedNode(static_cast<int>(i));
        if (!form.lxtOther.Visible()) continue;
        EXPECT_GT(form.lxtOther.ListCount(), 2) << ToUtf8(form.tvwFilter.Nodes()[i].Text);
      }
    }
  };
  for (const std::int32_t view : {101, 103}) {
    Walker user(console_);
    EXPECT_FALSE(Show(user, view));
  }
  session_.Count([&] {
    for (const TextView keyword : {u"OPERATOR", u"FUNCTIONAL", u"GOVERNMENTECO", u"DEPARTMENTECO",
                                   u"FBSCHEME", u"FBITEM", u"FBPERIOD", u"RTSCHEME", u"RTPERIOD"})
      ReadCodeList(MAction::CurrentSession(), keyword);
  });
  for (const StatementReport& report : session_.reports())
    EXPECT_TRUE(report.answered) << ToUtf8(report.sql);
  for (const TextView keyword : {u"CUSTOM0", u"FLEXIBLEFIELD05"})
    EXPECT_EQ(ReadCodeList(MAction::CurrentSession(), keyword).cells.size(), 12u)
        << ToUtf8(keyword);
}

}  // namespace
}  // namespace fetchkit::demo
