#include "fetchkit/utility/CodeTables.h"

#include <gtest/gtest.h>

#include "fetchkit/base/Utf8.h"

namespace fetchkit {
namespace {

TEST(CodeTables, Stem) {
  const std::pair<TextView, TextView> kShortened[] = {
      {u"CLASS1", u"CLASS"},          {u"Class2", u"Class"},   {u"Currencys", u"Currency"},
      {u"custom0", u"custom"},        {u"CUSTOM5", u"CUSTOM"}, {u"FlexibleField01", u"Field"},
      {u"FLEXIBLEFIELD30", u"Field"},
  };
  for (const auto& [table, stem] : kShortened)
    EXPECT_EQ(ToUtf8(CodeStem(table)), ToUtf8(stem)) << ToUtf8(table);
  for (const TextView table :
       {u"Department", u"Class3", u"CUSTOM6", u"Customer", u"CustomType", u"FLEXIBLEFIELD00",
        u"FLEXIBLEFIELD31", u"FLEXIBLEFIELD1", u"FLEXIBLEFIELD1x", u"FLEXIBLEFIELD010", u""})
    EXPECT_EQ(ToUtf8(CodeStem(table)), ToUtf8(table));
}

}  // namespace
}  // namespace fetchkit
