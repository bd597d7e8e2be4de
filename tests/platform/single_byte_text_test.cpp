#include "platform/single_byte_text.h"

#include <gtest/gtest.h>

#include <set>

namespace vesmora {
namespace {

TEST(SingleByteText, EveryByteComesBack) {
  std::set<std::string> seen;
  std::string all;
  for (int i = 0; i < 256; ++i) {
    const std::string one(1, static_cast<char>(static_cast<unsigned char>(i)));
    EXPECT_EQ(FromUtf8(ToUtf8(one)), one) << i;
    EXPECT_TRUE(seen.insert(ToUtf8(one)).second) << i;
    all += one;
  }
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(SingleByteText, KnownCharactersAndStrayBytes) {
  const struct {
    std::string utf8;
    std::string single;
  } both[] = {{"A\nz~", "A\nz~"}, {"\u00e4\u00df\u00ff", "\xe4\xdf\xff"}, {"\u20ac", "\x80"},
              {"\u0178", "\x9f"}, {"\u2019\u2122", "\x92\x99"},           {"\u0081", "\x81"}};
  for (const auto& [utf8, single] : both) {
    EXPECT_EQ(FromUtf8(utf8), single);
    EXPECT_EQ(ToUtf8(single), utf8);
  }
  const struct {
    std::string utf8;
    std::string single;
  } lossy[] = {{"a\u0416b", "a?b"},
               {"\u0080", "?"},
               {"\U0001F600!", "?!"},
               {"x\x80y", "x?y"},
               {"\xe2\x82", "??"},
               {"\xc3", "?"},
               {"\xc0\x80", "??"},
               {"\xe0\x80\x80", "???"},
               {"\xed\xa0\x80", "???"},
               {"\xf4\x90\x80\x80", "????"},
               {"\xf0\x80\x80\xaf", "????"},
               {"\xff\xfe", "??"},
               {"\xc3z", "?z"}};
  for (const auto& [utf8, single] : lossy) EXPECT_EQ(FromUtf8(utf8), single) << utf8;
}

}  // namespace
}  // namespace vesmora
