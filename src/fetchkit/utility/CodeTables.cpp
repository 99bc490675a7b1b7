#include "fetchkit/utility/CodeTables.h"

#include <algorithm>
#include <iterator>

namespace fetchkit {
namespace {

constexpr TextView kShortened[] = {u"CLASS1",  u"CLASS2",  u"CURRENCYS", u"CUSTOM0", u"CUSTOM1",
                                   u"CUSTOM2", u"CUSTOM3", u"CUSTOM4",   u"CUSTOM5"};
constexpr TextView kFlexible = u"FLEXIBLEFIELD";
constexpr TextView kFlexibleStem = u"Field";

// The tables of the manufacturing module whose keyword is longer than their column's stem.
constexpr TextView kWithoutFirstTwo[] = {u"MMROUTE",     u"MMROUTEPLAN",  u"MMWORKCENTER",
                                         u"MMWORKPAPER", u"MMBOMROUTE",   u"MMBOMTYPE",
                                         u"MMCALENDAR",  u"MMCALENDARSET"};

// Quirk: their statements have a second blank behind WHERE.
constexpr TextView kTwoBlanks[] = {u"BUSINESSADDRESS", u"EMPLOYEETYPE", u"AREA", u"ORGANIZATION"};

using Form = CodeTable::Form;

constexpr CodeTable kListed[] = {
    {u"Department", u"Department", Form::Assigned, true},
    {u"CustomerType", u"CustomType", Form::Assigned, true},
    {u"Class1", u"Class1", Form::Assigned, true},
    {u"Class2", u"Class2", Form::Assigned, true},
    {u"Functional", u"Functional", Form::Assigned, true},
    {u"GovernmentECO", u"GovernmentECO", Form::Assigned, true},
    {u"DepartmentECO", u"DepartmentECO", Form::Assigned, true},
    {u"Operator", u"Operator", Form::Distinct, false},
    {u"FBPeriod", u"FBPeriod", Form::WithoutCode, false},
    {u"RTPeriod", u"RTPeriod", Form::WithoutCode, false},
    {u"Currencys", u"Currencys", Form::Plain, false},
    {u"FBDutyCenter", u"FBDutyCenter", Form::Plain, true},
    {u"FBScheme", u"FBScheme", Form::Plain, true},
    {u"FBType", u"FBType", Form::Plain, true},
    {u"FBSystem", u"FBSystem", Form::Plain, true},
    {u"FBTarget", u"FBTarget", Form::Plain, true},
    {u"FBItem", u"FBItem", Form::Plain, true},
    {u"RTScheme", u"RTScheme", Form::Plain, false},
    {u"RTType", u"RTType", Form::Plain, false},
    {u"RTSystem", u"RTSystem", Form::Plain, false},
    {u"RTTarget", u"RTTarget", Form::Plain, false},
    {u"RTItem", u"RTItem", Form::Plain, false},
    {u"RTDutyCenter", u"RTDutyCenter", Form::Plain, false},
};

constexpr TextView kOperatorCaptions[] = {
    u"操作员",       u"制单",           u"制单人",         u"复核",   u"记账",     u"执行",
    u"执行者",       u"建表人",         u"建卡人",         u"撰写人", u"提醒对象", u"审核",
    u"库管",         u"财务",           u"代理人",         u"授权人", u"核销人",   u"单据制单人",
    u"发票制单人",   u"加工出库制单人", u"加工入库制单人", u"计划员", u"锁定人",   u"抵减凭证制单",
    u"抵减凭证复核", u"抵减凭证记账",   u"修改人",         u"启用人", u"停用人",   u"建立人",
    u"汇报人",       u"最后修改人",     u"养护人",         u"出纳",   u"审批人",   u"复核操作员",
};

constexpr TextView kCodeCaptions[] = {
    u"科目编码",
    u"部门编码",
    u"统计编码",
    u"项目编码",
    u"货位编码",
    u"物品类型编码",
    u"单位类型编码",
    u"固资类别编码",
    u"职员类别编码",
    u"科目编号",
    u"部门编号",
    u"统计编号",
    u"项目编号",
    u"货位编号",
    u"物品类型编号",
    u"单位类型编号",
    u"固资类别编号",
    u"职员类别编号",
    u"编码",
    u"功能分类科目编码",
    u"政府经济分类科目编码",
    u"部门经济分类科目编码",
    u"功能分类科目编号",
    u"政府经济分类科目编号",
    u"部门经济分类科目编号",
};

template <class Names>
bool Holds(const Names& names, TextView name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

template <class Names>
bool HoldsFolded(const Names& names, TextView name) {
  return std::any_of(std::begin(names), std::end(names),
                     [&](TextView each) { return EqualFolded(each, name); });
}

bool IsFlexible(TextView name) {
  return EqualFolded(name.substr(0, kFlexible.size()), kFlexible);
}

// "01" to "30".
bool IsFlexibleNumber(TextView digits) {
  return digits.size() == 2 && digits >= u"01" && digits <= u"30" && digits[1] >= u'0' &&
         digits[1] <= u'9';
}

}  // namespace

TextView CodeStem(TextView tableName) {
  if (HoldsFolded(kShortened, tableName)) return tableName.substr(0, tableName.size() - 1);
  if (IsFlexible(tableName) && IsFlexibleNumber(tableName.substr(kFlexible.size())))
    return kFlexibleStem;
  return tableName;
}

TextView ConditionKeyStem(TextView strKeyField) {
  return HoldsFolded(kWithoutFirstTwo, strKeyField) ? strKeyField.substr(2) : CodeStem(strKeyField);
}

TextView FilterKeyStem(TextView strKeyField) {
  return IsFlexible(strKeyField) ? strKeyField : ConditionKeyStem(strKeyField);
}

Text CodeIdSelect(TextView tableName) {
  const Text keyword = UpperAscii(tableName);
  const TextView stem = CodeStem(keyword);
  const bool regular = stem == keyword;
  return Join(u"SELECT str", stem, u"Code  as a1,", regular || stem == kFlexibleStem ? u" " : u"",
              u"lng", stem, u"ID as b1 FROM ", regular ? TextView(keyword) : tableName,
              regular && Holds(kTwoBlanks, keyword) ? u" WHERE  " : u" WHERE ");
}

const CodeTable* FindCodeTable(TextView strKeyField) {
  const auto* row =
      std::find_if(std::begin(kListed), std::end(kListed),
                   [&](const CodeTable& each) { return EqualFolded(each.keyword, strKeyField); });
  return row == std::end(kListed) ? nullptr : row;
}

bool IsOperatorCaption(TextView caption) {
  return Holds(kOperatorCaptions, caption);
}

bool IsCodeCaption(TextView caption) {
  return Holds(kCodeCaptions, caption);
}

}  // namespace fetchkit
