// Condition texts: composed as the dialog does, saved, read back, and made SQL on both ways.
#include "fetchkit/base/Date.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fuzz/Fuzz.h"
#include "support/StoredConditions.h"

namespace fetchkit::test {
namespace {

using Editor = FieldType::Editor;

// What the dialog takes as a text: none of the characters that it refuses, no blanks around.
Text TypedText(Input& in) {
  static constexpr TextView kPieces[] = {u"a", u"部", u"10", u"a b", u".",
                                         u"-", u"介", u"or", u"空值"};
  return Join(u"x", in.Pieces(kPieces, 4));
}

Text TypedDate(Input& in) {
  return FormatDate({36500.0 + in.Byte() * 17});
}

// The shown and the machine form of a condition that the dialog can leave.
void Compose(Input& in, ListFieldType& field) {
  const FieldType& type = *FieldTypeOf(field.strFieldType);
  const auto words = type.Words();
  // Behind the word for no condition.
  const int last = static_cast<int>(words.size()) - 1;
  const Text word(words.empty() ? TextView() : words[1 + static_cast<std::size_t>(in.Below(last))]);
  const Editor editor = type.EditedBy();
  switch (editor) {
    case Editor::Texts:
    case Editor::Numbers: {
      const auto value = [&] {
        return editor == Editor::Texts ? TypedText(in) : PlainDecimalText(in.Long() / 8.0);
      };
      if (word == words::kBetween)
        field.strExtValue = PairText(value(), value());
      else if (word != words::kNull && word != words::kZeroOrNull)
        field.strExtValue = value();
      field.strFilter = ConditionRowText(word, field.strExtValue);
      break;
    }
    case Editor::YesNo:
      field.strFilter = field.strExtValue = word;
      break;
    case Editor::Periods: {
      const Text from = TypedDate(in), to = TypedDate(in);
      field.strExtValue = PairText(from, to);
      field.strFilter = word == kCustomRange ? CustomPeriodText(from, to) : word;
      break;
    }
    case Editor::Dates:
      field.strFilter = field.strExtValue = TypedDate(in);
      break;
    case Editor::Codes:
    case Editor::Values: {
      const bool codes = editor == Editor::Codes;
      const int count = 1 + in.Below(3);
      Text items;
      for (int i = 0; i < count; ++i) {
        // A value may be without a text.
        const Text name = codes || in.Bool() ? TypedText(in) : Text();
        AppendWith(items, u',', codes ? Join(in.Byte() + 1) : Join(u"'", name, u"'"));
        AppendWith(field.strFilter, codes ? u' ' : u',', name);
      }
      if (field.strFilter.empty()) field.strFilter = items;
      field.strExtValue = ChoiceText(count > 1, items);
      if (codes) field.strCodeID = items;
      field.blnIsMuliCond = codes && count > 1;
      break;
    }
  }
}

Text Squeezed(TextView sql) {
  return ReplaceText(UpperAscii(sql), u" ", u"");
}

// Whether the dialog's SQL and that of a reload are to say the same in the same words.
bool SameSql(const ListFieldType& field) {
  const Editor editor = FieldTypeOf(field.strFieldType)->EditedBy();
  return editor != Editor::Codes && editor != Editor::Values && field.strFilter != words::kNull &&
         field.strFilter != words::kZeroOrNull &&
         (editor != Editor::Texts || field.strListFieldDesc == u"摘要");
}

}  // namespace

FUZZ_TARGET(Conditions) {
  ConditionContext context;
  context.dateRange = [](TextView, Text&, Text&) { return false; };
  context.class1Name = u"车间";
  context.naturalCurrencyId = 7;
  ListFieldType composed;
  composed.strFieldName = u"c";
  composed.strTableName = u"T";
  composed.strPath = u"p";
  composed.strFieldType =
      Text(in.Pick<TextView>({u"STRING", u"Long", u"DOUBLE", u"BOOLEAN", u"PERIOD", u"DATE",
                              u"CODE", u"ENUM", u"INTEGER"}));
  composed.strListFieldDesc =
      Text(in.Pick<TextView>({u"摘要", u"科目编码", u"辅助核算", u"状态", u"车间编号"}));
  composed.strKeyField =
      Text(in.Pick<TextView>({u"Department", u"CLASS1", u"ACCOUNT", u"FLEXIBLEFIELD07", u"mmRoute",
                              u"AssetType", u"CURRENCYS", u"CUSTOMER"}));
  Compose(in, composed);
  ListFieldType once = composed;
  const Text sql = RestoreCondition(ReadBack(composed), context, once);
  if (composed.strFilter == words::kAll) {
    EXPECT_EQ(sql, u"");
    return;
  }
  const FieldType& type = *FieldTypeOf(composed.strFieldType);
  ListFieldType expected = composed;
  // A word without a code reads back as its dates.
  if (type.EditedBy() == Editor::Periods && CondStrToNum(composed.strFilter).empty())
    expected.strFilter = once.strFilter;
  EXPECT_EQ(once, expected) << ToUtf8(composed.strFilter) << "\n" << ToUtf8(once.strFilter);

  const Text predicate = type.Predicate(composed, composed.strFilter, composed.strExtValue);
  for (const TextView condition : {TextView(sql), TextView(predicate)}) {
    EXPECT_NE(condition, u"") << ToUtf8(composed.strFilter);
    EXPECT_TRUE(IsWellFormed(condition)) << ToUtf8(condition);
  }
  if (SameSql(composed)) {
    EXPECT_EQ(ToUtf8(Squeezed(sql)), ToUtf8(Squeezed(predicate)));
  }

  ListFieldType twice = once;
  EXPECT_EQ(RestoreCondition(ReadBack(once), context, twice), sql);
  EXPECT_EQ(twice, once);
}

}  // namespace fetchkit::test
