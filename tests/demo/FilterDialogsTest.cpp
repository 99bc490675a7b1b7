// The dialogs over the sample accounts, answered in a console.
#include <gtest/gtest.h>

#include <sstream>

#include "base/Utf8.h"
#include "demo/commands/DemoSession.h"
#include "demo/commands/FilterUsers.h"
#include "dialogs/CodeLists.h"
#include "dialogs/Forms.h"
#include "listset/ListSet.h"

namespace fetchkit::demo {
namespace {

class FilterDialogs : public testing::Test {
 protected:
  FilterDialogs() {
    session_.Switch("main");
    session_.LogIn();
  }
  ~FilterDialogs() override { std::fclose(paper_); }

  ListSet& set() { return *session_.entry().ListSet(); }

  bool Show(FormView& view, std::int32_t viewId = 101) {
    Forms forms(view);
    SetFormHost(&forms);
    set().ViewId(viewId);
    const bool confirmed = set().ShowFilter(0);
    SetFormHost(nullptr);
    return confirmed;
  }

  std::int64_t Rows() {
    RecordsetPtr rows;
    const Text sql = Join(u"Select", set().GetListSelect(), u" From ", set().ListFrom(), u" Where ",
                          set().ListWhere(), u" And ", set().ListPureWhere());
    if (!session_.connection()->OpenStaticRecordset(sql, rows, 3, 1, 1, 0)) return -1;
    const std::int64_t count = rows->RecordCount();
    session_.connection()->CloseRecordset(rows);
    return count;
  }

  std::string Paper() {
    std::string text(static_cast<std::size_t>(std::ftell(paper_)), '\0');
    std::rewind(paper_);
    text.resize(std::fread(text.data(), 1, text.size(), paper_));
    return text;
  }

  std::FILE* paper_ = std::tmpfile();
  Console console_{paper_, ColourMode::Never};
  DemoSession session_{console_, false};
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
  const ListType saved = set().List();
  session_.LogInAfresh();
  set().ViewId(101);
  const ListType again = set().List();
  ASSERT_EQ(again.ListField.size(), saved.ListField.size());
  for (std::size_t i = 0; i < saved.ListField.size(); ++i) {
    const ListFieldType& field = saved.ListField[i];
    EXPECT_EQ(again.ListField[i].strFilter, field.strFilter) << i;
    EXPECT_EQ(again.ListField[i].strExtValue, field.strExtValue) << i;
    EXPECT_EQ(again.ListField[i].blnIsMuliCond, field.blnIsMuliCond) << i;
  }
  EXPECT_EQ(Rows(), rows);
  EXPECT_NE(
      Paper().find("1\t凭证日期\t本季度\n2\t部门\t国内销售科 国际业务科\n3\t金额\t大于 1000\n"),
      std::string::npos);
  EXPECT_EQ(session_.connection()->openRecordsets(), 0);
}

TEST_F(FilterDialogs, AskedUser) {
  // Columns of view 103: 1 code, 2 name, 4 kind, 5 level, 6 account, 8 detail.
  const struct {
    const char* name;
    const char* answers;
    bool confirmed;
    const char* where;
  } kRows[] = {
      {"between, by the word's beginning", "5\n介\n1\n3\no\n", true,
       "(Account.intLevel > 1 And Account.intLevel < 3)"},
      {"a code by typing", "6\n1131\no\n", true, "Account.lngACCOUNTID = 7"},
      {"several through the chooser", "4\n选择\n2\n1\no\no\n", true, nullptr},
      {"a refused value keeps the dialog, another one closes it", "5\n大于\nx\no\n5\n大于\n2\no\n",
       true, "Account.intLevel > 2"},
      {"removed by its number", "8\n2\n5\n零\nd 1\no\n", true,
       "(Account.intLevel Is Null or Account.intLevel=0)"},
      {"cleared", "8\n2\nc\no\n", true, ""},
      {"cancelled", "8\n2\nq\n", false, ""},
      {"the input ends", "8\n2\n5\n", false, ""},
      {"nonsense", "77\nd 9\n-\n\n8\nzzz\n8\n99\nq\n", false, ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    std::istringstream answers(row.answers);
    AskedUser user(console_, answers);
    set().List({});
    EXPECT_EQ(Show(user, 103), row.confirmed);
    if (row.where != nullptr) {
      EXPECT_EQ(ToUtf8(set().ListPureWhere()), row.where);
    } else {
      EXPECT_TRUE(set().ListPureWhere().starts_with(u"AccountType.strAccountTypeName In('"));
      EXPECT_GT(Rows(), 0);
    }
    // Nothing is left for the next row.
    std::istringstream clear("c\no\n");
    AskedUser again(console_, clear);
    Show(again, 103);
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
}

}  // namespace
}  // namespace fetchkit::demo
