// Single-byte text, and profile files of the game.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/profile_text.h"
#include "platform/single_byte_text.h"
#include "platform/text.h"

namespace vesmora {
namespace {

std::string Wide(const std::string& text) {
  std::string bytes = "\xFF\xFE";
  for (const char c : text) bytes.append(1, c).append(1, '\0');
  return bytes;
}

/// The value of GAME's GameStyle, and the file after 3 was written there.
TEST(ProfileTextTest, OnlyTheOneValueChanges) {
  struct Row {
    std::string before;
    std::optional<std::string> value;
    std::string after;
  };
  const std::vector<Row> rows = {
      // Blanks, cases and quotes.
      {" [game] \n\tGAMESTYLE =  2\t\n", "2", " [game] \n\tGAMESTYLE =  3\t\n"},
      {"[GAME]\nGameStyle='2'\n", "2", "[GAME]\nGameStyle=3\n"},
      {"[GAME]\nGameStyle=", "", "[GAME]\nGameStyle=3"},
      // The first section and the first key of a name count; comments and other sections do not.
      {"GameStyle=1\n[A]\nGameStyle=2\n[GAME]\n;GameStyle=4\nGameStyle=5\nGameStyle=6\n", "5",
       "GameStyle=1\n[A]\nGameStyle=2\n[GAME]\n;GameStyle=4\nGameStyle=3\nGameStyle=6\n"},
      {"[GAME]\nA=1\n[GAME]\nGameStyle=2\n", std::nullopt,
       "[GAME]\nA=1\nGameStyle=3\n[GAME]\nGameStyle=2\n"},
      {"[GAME2]\n[GAME\nGameStyle=2\nGameStyles=2\n", std::nullopt,
       "[GAME2]\n[GAME\nGameStyle=2\nGameStyles=2\n[GAME]\nGameStyle=3\n"},
      // A missing key goes behind the section's last line, a missing section to the end.
      {"[GAME]\r\nA=[1]\r\n; last \r\n\r\n\r\n[B]\r\n", std::nullopt,
       "[GAME]\r\nA=[1]\r\n; last \r\nGameStyle=3\r\n\r\n\r\n[B]\r\n"},
      {"[GAME]\nA=1\n", std::nullopt, "[GAME]\nA=1\nGameStyle=3\n"},
      {"[A]\nB=1", std::nullopt, "[A]\nB=1\n[GAME]\nGameStyle=3\n"},
      {"", std::nullopt, "[GAME]\r\nGameStyle=3\r\n"},
      // Line ends and characters of all kinds stay.
      {"\xEF\xBB\xBF[GAME]\rGameStyle=2\r\rC=\xE4\x01\r\n\n", "2",
       "\xEF\xBB\xBF[GAME]\rGameStyle=3\r\rC=\xE4\x01\r\n\n"},
      {Wide("[GAME]\r\nGameStyle=21\r\n"), "21", Wide("[GAME]\r\nGameStyle=3\r\n")},
      {Wide("[A]\nB=1") + "\xE4\x04", std::nullopt,
       Wide("[A]\nB=1") + "\xE4\x04" + Wide("\n[GAME]\nGameStyle=3\n").substr(2)},
  };
  for (const auto& [before, value, after] : rows) {
    EXPECT_EQ(FindProfileValue(before, "GAME", "GameStyle"), value) << before;
    EXPECT_EQ(WithProfileValue(before, "GAME", "GameStyle", "3"), after) << before;
    EXPECT_EQ(WithProfileValue(after, "GAME", "GameStyle", "3"), after) << "writing it again";
  }
}

TEST(ProfileTextTest, AValueIsTheNumberItBeginsWith) {
  using Row = std::pair<const char*, int>;
  for (const auto& [value, number] :
       {Row("+7 ; why", 7), Row("-2x", -2), Row("", 0), Row("x3", 0), Row("-", 0),
        Row("99999999999999999999", 2147483647), Row("-99999999999", -2147483647 - 1)}) {
    EXPECT_EQ(ProfileNumber(value), number) << value;
  }
}

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

TEST(SingleByteText, EveryLetterHasItsOtherCase) {
  const std::string capitals = "AZ\x8A\x8C\x8E\x9F\xC0\xC4\xD6\xD8\xDE @[`{\xD7\xF7\xDF\x99";
  const std::string small = "az\x9A\x9C\x9E\xFF\xE0\xE4\xF6\xF8\xFE @[`{\xD7\xF7\xDF\x99";
  EXPECT_EQ(LowerCaseSingleByte(capitals), small);
  EXPECT_EQ(LowerCaseSingleByte(small), small);
  EXPECT_EQ(LowerCase(ToUtf8(capitals)), ToUtf8(small));
  EXPECT_EQ(UpperCase(ToUtf8(small)), ToUtf8(capitals));
  EXPECT_EQ(UpperCase(ToUtf8(capitals)), ToUtf8(capitals));
}

}  // namespace
}  // namespace vesmora
