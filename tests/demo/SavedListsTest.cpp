// Saved lists through the real statements, on the sample accounts.
#include <gtest/gtest.h>

#include <set>

#include "demo/commands/DemoSession.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListSet.h"

namespace fetchkit::demo {
namespace {

// What an operator has set. Which columns are shown is left aside: saving shows every column that
// the list keeps, whatever was shown before.
ListType Settings(ListType list) {
  for (ListFieldType& field : list.ListField)
    field.blnIsChoosed = false;
  return list;
}

class SavedLists : public testing::Test {
 protected:
  SavedLists() {
    session_.Switch("main");
    session_.LogIn();
  }

  ListSet& set() { return *session_.entry().ListSet(); }

  ListType Load(std::int32_t view) {
    set().ViewId(view);
    return set().List();
  }

  // The rows of the host's own query.
  std::int64_t Rows() {
    RecordsetPtr rows;
    const Text sql = Join(u"Select", set().GetListSelect(), u" From ", set().ListFrom(), u" Where ",
                          set().ListWhere(), u" And ", set().ListPureWhere());
    if (!session_.connection()->OpenStaticRecordset(sql, rows, 3, 1, 1, 0)) return -1;
    const std::int64_t count = rows->RecordCount();
    session_.connection()->CloseRecordset(rows);
    return count;
  }

  Console quiet_{stderr, ColourMode::Never};
  DemoSession session_{quiet_, false};
};

TEST_F(SavedLists, OneConditionOfEachKindSelectsRows) {
  const ListType list = Load(101);
  std::set<Text> kinds;
  for (const ListFieldType& field : list.ListField)
    if (!field.strFilter.empty()) kinds.insert(field.strFieldType);
  EXPECT_EQ(kinds, (std::set<Text>{u"BOOLEAN", u"CODE", u"DATE", u"DOUBLE", u"ENUM", u"INTEGER",
                                   u"LONG", u"PERIOD", u"STRING"}));
  EXPECT_EQ(Rows(), 5);
  EXPECT_EQ(session_.connection()->openRecordsets(), 0);
}

TEST_F(SavedLists, NothingIsLostOverLoadSaveLoad) {
  for (const std::int32_t view : {101, 102}) {
    SCOPED_TRACE(view);
    session_.LogInAfresh();
    const ListType before = Load(view);
    const std::int64_t rows = Rows();
    EXPECT_GT(rows, 0);
    set().SaveList();
    session_.LogInAfresh();
    EXPECT_TRUE(Settings(Load(view)) == Settings(before));
    EXPECT_EQ(Rows(), rows);
  }
}

TEST_F(SavedLists, NewListIsSavedAndFoundAgain) {
  session_.Switch("leaf");  // nobody has saved a list here
  session_.LogIn();
  ListType list = Load(101);
  ASSERT_EQ(list.lngListID, 0);
  std::size_t saved = 0;
  for (ListFieldType& field : list.ListField) {
    saved += field.blnIsChoose || field.blnIsFixed || field.blnIsMust || field.blnIsPrep;
    if (field.strFieldType != u"LONG") continue;
    field.strFilter = u"介于 2,40";
    field.strExtValue = u"2,40";
  }
  set().List(list);
  EXPECT_EQ(session_.Count([&] { set().SaveList(); }), 3 * saved + 4);
  EXPECT_EQ(session_.Count([&] { set().SaveList(); }), saved + 2) << "a second save updates";
  const std::int32_t id = set().List().lngListID;
  EXPECT_GT(id, 0);
  session_.LogInAfresh();
  const ListType again = Load(101);
  EXPECT_EQ(again.lngListID, id);
  EXPECT_EQ(ToUtf8(set().ListPureWhere()),
            "(Voucher.lngVoucherNO > 2 And Voucher.lngVoucherNO < 40)");
}

TEST_F(SavedLists, RefusedBlockLeavesTheStoredConditions) {
  const ListType before = Load(101);
  struct Spoilt {
    const char* name;
    void (*spoil)(ListFieldType&);
  };
  const Spoilt kRows[] = {
      {"an apostrophe", [](ListFieldType& field) { field.strExtValue = u"it's"; }},
      {"a word that nobody knows", [](ListFieldType& field) { field.strFilter = u"大约 5"; }},
  };
  for (const Spoilt& row : kRows) {
    SCOPED_TRACE(row.name);
    ListType list = before;
    for (ListFieldType& field : list.ListField)
      if (field.strFieldType == u"STRING" && !field.strFilter.empty()) row.spoil(field);
    ASSERT_FALSE(list == before);
    set().List(list);
    session_.Count([&] { set().SaveList(); });
    const StatementReport& block = session_.reports().back();
    EXPECT_FALSE(block.answered);
    EXPECT_TRUE(block.sql.starts_with(u"Begin "));
    EXPECT_NE(block.error, u"");
    EXPECT_TRUE(Settings(Load(101)) == Settings(before));
  }
}

}  // namespace
}  // namespace fetchkit::demo
