#include "fetchkit/platform/Platform.h"

#include <gtest/gtest.h>

#include "fetchkit/utility/ListSearch.h"

namespace fetchkit::test {
namespace {

TEST(Platform, TellsTheCodesOfCodePage936WhateverTheSystemsIs) {
  const Platform& platform = CurrentPlatform();
  EXPECT_EQ(platform.GbkCode(u'A'), 0x41);
  EXPECT_EQ(platform.GbkCode(u'银'), 0xD2F8);
  EXPECT_EQ(platform.GbkCode(u'〇'), 0xA996);
  EXPECT_EQ(platform.GbkCode(0xFA29), 0xFE4F);
  EXPECT_EQ(platform.GbkCode(u'한'), u'?');
  ListSearch search;
  search.SearchFor(u"yhck");
  EXPECT_TRUE(search.Matches(u"工商银行存款"));
}

}  // namespace
}  // namespace fetchkit::test
