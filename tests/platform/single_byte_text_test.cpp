#include "platform/single_byte_text.h"

#include <gtest/gtest.h>

namespace vesmora {
namespace {

TEST(SingleByteText, EveryByteComesBackAndStrayOnesBecomeQuestionMarks) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(static_cast<unsigned char>(i));
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
  EXPECT_EQ(ToUtf8(all.substr(0x7E, 0x24)),
            "~\x7F\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152"
            "\u008d\u017d\u008f\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122"
            "\u0161\u203a\u0153\u009d\u017e\u0178\u00a0\u00a1");
  using Row = std::pair<std::string, std::string>;
  for (const auto& [utf8, single] :
       {Row("a\u0416b\u0080c\U0001F600", "a?b?c?"), Row("x\x80y", "x?y"), Row("\xe2\x82", "??"),
        Row("\xc0\x80", "??"), Row("\xe0\x80\x80", "???"), Row("\xed\xa0\x80", "???"),
        Row("\xf4\x90\x80\x80", "????"), Row("\xf0\x80\x80\xaf", "????"), Row("\xc3z", "?z")}) {
    EXPECT_EQ(FromUtf8(utf8), single) << utf8;
  }
}

}  // namespace
}  // namespace vesmora
