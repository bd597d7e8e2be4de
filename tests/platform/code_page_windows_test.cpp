#include "platform/code_page_windows.h"

#include <gtest/gtest.h>

namespace vesmora {
namespace {

std::string Byte(int number) { return {static_cast<char>(static_cast<unsigned char>(number))}; }

TEST(CodePage, EveryByteAndPairComesBack) {
  for (const unsigned number : {1250U, 1251U, 1252U, 1255U, 874U, 932U, 936U, 949U, 950U, 65001U}) {
    const CodePage page(number);
    int lost = 0;
    for (int i = 0; i < 256; ++i) {
      EXPECT_EQ(page.FromUtf8(page.ToUtf8(Byte(i))), Byte(i)) << number << ", byte " << i;
      for (int j = 0; j < 256; ++j) {
        const std::string pair = Byte(i) + Byte(j);
        lost += page.FromUtf8(page.ToUtf8(pair)) != pair ? 1 : 0;
      }
    }
    EXPECT_EQ(lost, 0) << number;
  }
}

TEST(CodePage, KnownCharactersAndNothingSimilar) {
  EXPECT_EQ(CodePage(1251).ToUtf8("\xc6"), "\u0416");
  EXPECT_EQ(CodePage(1251).FromUtf8("\u0416\u00e9"), "\xc6?");  // no "e" for the accented one
  EXPECT_EQ(CodePage(1250).FromUtf8("\u0159\u00f1"), "\xf8?");
  EXPECT_EQ(CodePage(932).ToUtf8("\x93\xfa\x96{"), "\u65e5\u672c");
  EXPECT_EQ(CodePage(932).FromUtf8("a\u65e5\u672c"), "a\x93\xfa\x96{");
  EXPECT_EQ(CodePage(65001).FromUtf8("\u00e9\u0416"), "\xe9?");
}

}  // namespace
}  // namespace vesmora
