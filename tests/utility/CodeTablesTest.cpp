#include "fetchkit/utility/CodeTables.h"

#include <gtest/gtest.h>

#include "fetchkit/base/Utf8.h"

namespace fetchkit {
namespace {

TEST(CodeTables, Stem) {
  const std::pair<TextView, TextView> kRows[] = {
      {u"Department", u"Department"},
      {u"CLASS1", u"CLASS"},
      {u"Class2", u"Class"},
      {u"Class3", u"Class3"},
      {u"Currencys", u"Currency"},
      {u"custom0", u"custom"},
      {u"CUSTOM5", u"CUSTOM"},
      {u"CUSTOM6", u"CUSTOM6"},
      {u"Customer", u"Customer"},
      {u"CustomType", u"CustomType"},
      {u"FlexibleField01", u"Field"},
      {u"FLEXIBLEFIELD30", u"Field"},
      {u"FLEXIBLEFIELD00", u"FLEXIBLEFIELD00"},
      {u"FLEXIBLEFIELD31", u"FLEXIBLEFIELD31"},
      {u"FLEXIBLEFIELD1", u"FLEXIBLEFIELD1"},
      {u"FLEXIBLEFIELD1x", u"FLEXIBLEFIELD1x"},
      {u"FLEXIBLEFIELD010", u"FLEXIBLEFIELD010"},
      {u"", u""},
  };
  for (const auto& [table, stem] : kRows)
    EXPECT_EQ(ToUtf8(CodeStem(table)), ToUtf8(stem)) << ToUtf8(table);
}

}  // namespace
}  // namespace fetchkit
