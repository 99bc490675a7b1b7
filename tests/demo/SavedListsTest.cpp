// Saved lists through the real statements, on the sample accounts.
#include <gtest/gtest.h>

#include <set>

#include "demo/LoggedIn.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {
namespace {

using SavedLists = LoggedIn;

TEST_F(SavedLists, OneConditionOfEachKindInTheListsOrder) {
  const ListType list = Load(101);
  std::set<Text> kinds;
  for (const ListFieldType& field : list.ListField)
    if (!field.strFilter.empty()) kinds.insert(field.strFieldType);
  EXPECT_EQ(kinds, (std::set<Text>{u"BOOLEAN", u"CODE", u"DATE", u"DOUBLE", u"ENUM", u"INTEGER",
                                   u"LONG", u"PERIOD", u"STRING"}));
  EXPECT_EQ(Rows(), 5);
  // Fixed columns first, then by the list's number, else by the view's. Nobody else's list is read,
  // and a column is there once, however many codes are chosen for it.

  Text columns;
  for (const ListFieldType& field : list.ListField)
    columns += Join(field.strListFieldDesc, u"=", field.strFilter, u" ");
  EXPECT_EQ(
      ToUtf8(columns),
      "凭证日期=本月 凭证字= 凭证号=大于等于 2 组织= 科目编码=打头字符为 1002 科目名称= "
      "部门=国内销售科 国际业务科 借方金额=大于 10000 往来单位= 贷方金额= 摘要= 统计= 项目= "
      "凭证状态=已复核,已记账 职员= 复核日期=2004-03-15 币种= 数量= 金额= 附件数=小于 8 汇率= "
      "是否复核=是 是否记账= 记账日期= 制单人= 复核人编号= 合同号= 年度= 期间= "
      "往来单位/单位类型= ");
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

}  // namespace
}  // namespace fetchkit::demo
