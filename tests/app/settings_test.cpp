// What the settings keep between runs: recent files and the window's place.
#include <gmock/gmock.h>

#include "app/recent_files.h"
#include "app/window_placement.h"
#include "support/memory_settings.h"

namespace vesmora {
namespace {

using Slots = std::array<std::string, kRecentSlots>;

class SettingsTest : public testing::Test {
 protected:
  EventLog events_;
  MemorySettings settings_{events_};
};

TEST_F(SettingsTest, AddRecentNeverClosesAGap) {
  struct Row {
    Slots before;
    std::string path;
    Slots after;
  };
  for (const Row& row : {
           Row{{}, "A", {"A"}}, Row{{"A"}, "A", {"A"}},
           Row{{"A", "B", "C", "D", "E"}, "F", {"F", "A", "B", "C", "D"}},
           Row{{"A", "B", "C", "D", "E"}, "D", {"D", "A", "B", "C", ""}},
           Row{{"A", "B", "C", "D", "E"}, "B", {"B", "A", "", "C", "D"}},
           Row{{"A", "B", "", "D", "D"}, "D", {"D", "A", "B", "", ""}},
           Row{{"", "B", "", "D", "E"}, "E", {"E", "", "B", "", "D"}},
           Row{{"A", "B"}, "a", {"a", "A", "B"}},  // letters' case counts
       }) {
    RecentFiles recent{row.before};
    AddRecent(recent, row.path);
    EXPECT_EQ(recent.slots, row.after) << row.path;
    AddRecent(recent, row.path);
    EXPECT_EQ(recent.slots, row.after) << row.path << " twice";
  }
}

TEST_F(SettingsTest, RecentFilesAreKeptWithTheirGaps) {
  const std::string longText(10000, 'x');
  settings_.values = {{"Recent/0", "  /maps/a b.pmp "}, {"Recent/1", "a.pm"}, {"Recent/2", "    "},
                      {"Recent/3", longText},           {"Recent/9", "no"},   {"Recent/Path", "/"}};
  RecentFiles recent{{"", "", "", "", "old"}};
  LoadRecent(recent, settings_);
  EXPECT_EQ(recent.slots, (Slots{"/maps/a b.pmp", "a.pm", "", longText, ""}));
  std::vector<std::string> shown;
  for (int slot = 0; slot < kRecentSlots; ++slot) {
    const RecentMenuItem item = RecentMenuItemOf(recent, slot);
    if (item.visible) shown.push_back(item.caption);
  }
  EXPECT_THAT(shown, testing::ElementsAre("&1 /maps/a b.pmp", "&4 " + longText));

  settings_.values["Recent/4"] = "stale";
  StoreRecent(recent, settings_);
  EXPECT_EQ(settings_.values["Recent/2"], "");
  EXPECT_EQ(settings_.values["Recent/4"], "");
  EXPECT_EQ(settings_.values["Recent/3"], longText);
}

TEST_F(SettingsTest, PlacementTakesNumbersOnly) {
  const auto width = [&](const std::string& text) {
    settings_.values["Windows/Width"] = text;
    return LoadPlacement(settings_).width;
  };
  for (const std::string& text :
       {std::string(), std::string("   "), std::string("wide"), std::string("-"),
        std::string("-999"), std::string("nan"), std::string("-nan(1)"), std::string("inf"),
        std::string("-infinity"), std::string("1e999"), std::string(10000, '9'),
        std::string(10000, 'y'), std::string(1, '\0')}) {
    EXPECT_EQ(width(text), std::nullopt) << text.substr(0, 20);
  }
  const std::vector<std::string> numbers = {"0", " -12 ", "2.5", "3.5", "12pt", "32768", "-4e9"};
  std::vector<int> read;
  for (const std::string& text : numbers) read.push_back(width(text).value_or(-999));
  EXPECT_THAT(read, testing::ElementsAre(0, -12, 2, 4, 12, 32767, -32768));

  StorePlacement({.state = 2, .top = -7, .left = 8, .width = {}, .height = 700}, settings_);
  const WindowPlacement again = LoadPlacement(settings_);
  EXPECT_THAT((std::array{again.state, again.top, again.left, again.width, again.height}),
              testing::ElementsAre(2, -7, 8, std::nullopt, 700));
  settings_.values.clear();
  EXPECT_EQ(LoadPlacement(settings_).state, std::nullopt);
}

TEST_F(SettingsTest, AWindowCanAlwaysBeReached) {
  const std::vector<ScreenRect> one = {{0, 0, 1920, 1080}};
  const std::vector<ScreenRect> two = {{0, 0, 1920, 1080}, {-1280, 100, 1280, 1024}};
  struct Row {
    ScreenRect window;
    const std::vector<ScreenRect>& screens;
    ScreenRect expected;
  };
  for (const Row& row : {
           Row{{100, 50, 900, 700}, one, {100, 50, 900, 700}},
           Row{{-700, 50, 900, 700}, one, {-700, 50, 900, 700}},  // 200 pixels to drag by
           Row{{-850, 50, 900, 700}, one, {0, 50, 900, 700}},
           Row{{1900, 50, 900, 700}, one, {1020, 50, 900, 700}},
           Row{{100, -650, 900, 700}, one, {100, 28, 900, 700}},    // the title bar is above
           Row{{100, 1080, 900, 700}, one, {100, 1080, 900, 700}},  // its bar can be seen
           Row{{32767, 32767, 32767, 32767}, one, {0, 28, 1920, 1080}},
           Row{{-32768, -32768, 900, 700}, one, {0, 28, 900, 700}},
           Row{{-1000, 200, 900, 700}, one, {0, 200, 900, 700}},  // the second is unplugged
           Row{{-1000, 200, 900, 700}, two, {-1000, 200, 900, 700}},
           Row{{-1250, 200, 1900, 1060}, two, {-1250, 200, 1280, 1024}},
           Row{{-1000, 1124, 900, 700}, two, {-1000, 1124, 900, 700}},
           Row{{10, 1100, 1900, 700}, one, {10, 380, 1900, 700}},  // eight rows are no handle
       }) {
    const ScreenRect fitted = FitToScreens(row.window, row.screens);
    EXPECT_EQ(fitted, row.expected)
        << row.window.left << "," << row.window.top << " gave " << fitted.left << "," << fitted.top
        << " " << fitted.width << "x" << fitted.height;
  }
}

}  // namespace
}  // namespace vesmora
