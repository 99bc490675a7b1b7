#include "fetchkit/base/Value.h"

#include <gtest/gtest.h>

#include "support/FailingAllocations.h"

namespace fetchkit::test {
namespace {

TEST(Values, ACopyWithoutMemoryLeavesTheTarget) {
  const Value longText = u"longer than what fits without memory";
  for (const Value& before : {Value(), Value(std::int32_t{7}), Value(Text(100, u'x'))}) {
    Value target = before;
    const auto assign = [&] {
      const FailingAllocations fail(1);
      target = longText;
    };
    EXPECT_THROW(assign(), std::bad_alloc);
    EXPECT_EQ(ToText(target), ToText(before));
  }
}

}  // namespace
}  // namespace fetchkit::test
