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
  static constexpr TextView kPieces[] = {u"a", u"部", u"10", u"a b", u".", u"-", u"介", u"or"};
  return Join(u"x", in.Pieces(kPieces, 4));
}

Text TypedDate(Input& in) {
  return FormatDate({36500.0 + in.Byte() * 17});
}

// A field of any type with a condition that the dialog can leave.
ListFieldType Composed(Input& in) {
  ListFieldType field;
  field.strFieldName = u"c";
  field.strTableName = u"T";
  field.strPath = u"p";
  field.strFieldType = Text(in.Pick<TextView>({u"STRING", u"Long", u"DOUBLE", u"BOOLEAN", u"PERIOD",
                                               u"DATE", u"CODE", u"ENUM", u"INTEGER"}));
  field.strListFieldDesc =
      Text(in.Pick<TextView>({u"摘要", u"科目编码", u"辅助核算", u"状态", u"车间编号"}));
  field.strKeyField =
      Text(in.Pick<TextView>({u"Department", u"CLASS1", u"ACCOUNT", u"FLEXIBLEFIELD07", u"mmRoute",
                              u"AssetType", u"CURRENCYS", u"CUSTOMER"}));
  const FieldType& type = *FieldTypeOf(field.strFieldType);
  const auto words = type.Words();
  // Behind the word for no condition.
  const Text word =
      words.empty()
          ? Text()
          : words[1 + static_cast<std::size_t>(in.Below(static_cast<int>(words.size()) - 1))];
  switch (type.EditedBy()) {
    case Editor::Texts:
    case Editor::Numbers: {
      const auto value = [&] {
        return type.EditedBy() == Editor::Texts ? TypedText(in) : PlainDecimalText(in.Long() / 8.0);
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
    case Editor::Periods:
      field.strExtValue = PairText(TypedDate(in), TypedDate(in));
      field.strFilter = word == kCustomRange ? CustomPeriodText(FirstValueOf(field.strExtValue),
                                                                SecondValueOf(field.strExtValue))
                                             : word;
      break;
    case Editor::Dates:
      field.strFilter = field.strExtValue = TypedDate(in);
      break;
    case Editor::Codes:
    case Editor::Values: {
      const bool codes = type.EditedBy() == Editor::Codes;
      const int count = 1 + in.Below(3);
      Text items, names;
      for (int i = 0; i < count; ++i) {
        const Text name = TypedText(in);
        AppendWith(items, u',', codes ? Join(in.Byte() + 1) : Join(u"'", name, u"'"));
        AppendWith(names, codes ? u' ' : u',', name);
      }
      field.strFilter = names;
      field.strExtValue = ChoiceText(count > 1, items);
      if (codes) field.strCodeID = items;
      field.blnIsMuliCond = codes && count > 1;
      break;
    }
  }
  return field;
}

bool IsWellFormed(TextView sql) {
  int depth = 0;
  bool quoted = false;
  for (const char16_t unit : sql) {
    if (unit == u'\'') quoted = !quoted;
    if (quoted) continue;
    depth += unit == u'(' ? 1 : unit == u')' ? -1 : 0;
    if (depth < 0) return false;
  }
  return depth == 0 && !quoted;
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
  const ListFieldType composed = Composed(in);
  ListFieldType once = composed;
  const Text sql = RestoreCondition(ReadBack(composed), context, once);
  const bool uncoded = FieldTypeOf(composed.strFieldType)->EditedBy() == Editor::Periods &&
                       CondStrToNum(composed.strFilter).empty();
  if (composed.strFilter == words::kAll) {
    EXPECT_EQ(sql, u"");
    return;
  }
  // A word without a code reads back as its dates.
  if (!uncoded) {
    EXPECT_EQ(ToUtf8(once.strFilter), ToUtf8(composed.strFilter));
  }
  EXPECT_EQ(ToUtf8(once.strExtValue), ToUtf8(composed.strExtValue));
  EXPECT_EQ(once.strCodeID, composed.strCodeID);
  EXPECT_EQ(once.blnIsMuliCond, composed.blnIsMuliCond);
  EXPECT_NE(sql, u"");
  EXPECT_TRUE(IsWellFormed(sql)) << ToUtf8(sql);

  const Text predicate = FieldTypeOf(composed.strFieldType)
                             ->Predicate(composed, composed.strFilter, composed.strExtValue);
  EXPECT_NE(predicate, u"");
  EXPECT_TRUE(IsWellFormed(predicate)) << ToUtf8(predicate);
  if (SameSql(composed)) {
    EXPECT_EQ(ToUtf8(Squeezed(sql)), ToUtf8(Squeezed(predicate)));
  }

  ListFieldType twice = once;
  EXPECT_EQ(RestoreCondition(ReadBack(once), context, twice), sql);
  EXPECT_EQ(twice, once);
}

}  // namespace fetchkit::test
