#include "fetchkit/dialogs/ControlModels.h"

#include <gtest/gtest.h>

#include "support/Table.h"

namespace fetchkit::test {
namespace {

class EmptyForm : public Form {
 public:
  EmptyForm() : Form(u"form", u"") {}
  void UserPressedEnter() override {}
  void UserPressedEscape() override {}
  void UserClosed() override {}
};

// Of four rows or items, "a" to "d".
TEST(ControlModels, TheCurrentRowStaysTheSameOneWhenAnotherIsRemoved) {
  Table<int, int, int>{
      {"one in front of it", 2, 0, 1},    {"one behind it", 1, 3, 1},
      {"itself: the next one", 1, 1, 1},  {"itself, the last", 3, 3, 2},
      {"one that is not there", 2, 4, 2},
  }
      .Check([](int current, int removed, int expected) {
        EmptyForm form;
        ListBox list(form, u"list");
        MSFlexGrid grid(form, u"grid");
        grid.FormatString(u"caption");
        for (const TextView text : {u"a", u"b", u"c", u"d"}) {
          list.AddItem(Text(text));
          grid.AddItem(text);
        }
        list.ListIndex(current);
        list.RemoveItem(removed);
        EXPECT_EQ(list.ListIndex(), expected);
        // Below a header.
        grid.Row(current + 1);
        grid.RemoveItem(removed + 1);
        EXPECT_EQ(grid.Row(), expected + 1);
      });
}

}  // namespace
}  // namespace fetchkit::test
