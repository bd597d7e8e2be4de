#include "platform/profile_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

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
      {"[GAME]\r\nGameStyle=2\r\nOther=1\r\n", "2", "[GAME]\r\nGameStyle=3\r\nOther=1\r\n"},
      {"[GAME]\nGameStyle=12", "12", "[GAME]\nGameStyle=3"},
      // Blanks, cases and quotes.
      {" [game] \n\tGAMESTYLE =  2\t\n", "2", " [game] \n\tGAMESTYLE =  3\t\n"},
      {"[GAME]\nGameStyle='2'\n", "2", "[GAME]\nGameStyle=3\n"},
      {"[GAME]\nGameStyle=\n", "", "[GAME]\nGameStyle=3\n"},
      // The first section and the first key of a name count; comments and other sections do not.
      {"GameStyle=1\n[A]\nGameStyle=2\n[GAME]\n;GameStyle=4\nGameStyle=5\nGameStyle=6\n", "5",
       "GameStyle=1\n[A]\nGameStyle=2\n[GAME]\n;GameStyle=4\nGameStyle=3\nGameStyle=6\n"},
      {"[GAME]\nA=1\n[GAME]\nGameStyle=2\n", std::nullopt,
       "[GAME]\nA=1\nGameStyle=3\n[GAME]\nGameStyle=2\n"},
      {"[GAME2]\n[GAME\nGameStyle=2\nGameStyles=2\n", std::nullopt,
       "[GAME2]\n[GAME\nGameStyle=2\nGameStyles=2\n[GAME]\nGameStyle=3\n"},
      // A missing key goes behind the section's last line, a missing section to the end.
      {"[GAME]\r\nA=1\r\n; last \r\n\r\n\r\n[B]\r\n", std::nullopt,
       "[GAME]\r\nA=1\r\n; last \r\nGameStyle=3\r\n\r\n\r\n[B]\r\n"},
      {"[GAME]", std::nullopt, "[GAME]\r\nGameStyle=3"},
      {"[A]\nB=1", std::nullopt, "[A]\nB=1\n[GAME]\nGameStyle=3\n"},
      {"", std::nullopt, "[GAME]\r\nGameStyle=3\r\n"},
      // Line ends and characters of all kinds stay.
      {"[A]\r\nB=\xE4\xF6\n\n[GAME]\rGameStyle=2\r\rC=\x01\n", "2",
       "[A]\r\nB=\xE4\xF6\n\n[GAME]\rGameStyle=3\r\rC=\x01\n"},
      {"\xEF\xBB\xBF[GAME]\nGameStyle=2\n", "2", "\xEF\xBB\xBF[GAME]\nGameStyle=3\n"},
      {Wide("[GAME]\r\nGameStyle=21\r\n"), "21", Wide("[GAME]\r\nGameStyle=3\r\n")},
      {Wide("[A]\nB=1") + "\xE4\x04", std::nullopt,
       Wide("[A]\nB=1") + "\xE4\x04" + Wide("\n[GAME]\nGameStyle=3\n").substr(2)},
      {Wide("[GAME]\n") + "x", std::nullopt, Wide("[GAME]\nGameStyle=3\n") + "x"},
  };
  for (const auto& [before, value, after] : rows) {
    EXPECT_EQ(FindProfileValue(before, "GAME", "GameStyle"), value) << before;
    EXPECT_EQ(WithProfileValue(before, "GAME", "GameStyle", "3"), after) << before;
    EXPECT_EQ(WithProfileValue(after, "GAME", "GameStyle", "3"), after) << "writing it again";
  }
}

TEST(ProfileTextTest, AValueIsTheNumberItBeginsWith) {
  for (const auto& [value, number] : {std::pair{"3", 3},
                                      {"+7 ; why", 7},
                                      {"-2x", -2},
                                      {"", 0},
                                      {"x3", 0},
                                      {"-", 0},
                                      {"99999999999999999999", 2147483647},
                                      {"-99999999999", -2147483647 - 1}}) {
    EXPECT_EQ(ProfileNumber(value), number) << value;
  }
}

}  // namespace
}  // namespace vesmora
