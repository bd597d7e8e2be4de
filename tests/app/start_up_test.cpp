// Start and end, and what the settings keep between runs.
#include "app/start_up.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

#include "support/editor_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre, testing::IsEmpty;

using Slots = std::array<std::string, kRecentSlots>;

class StartUpTest : public testing::Test, protected EditorBench {
 protected:
  /// The messages of a start with these arguments.
  std::vector<Message> Start(const std::string& arguments) {
    state.redrawSuppressed = true;
    events.clear();
    FirstActivation(editor, arguments);
    return TakeMessages();
  }

  const std::string game_ = folder / "game/Soldat.exe";
  Slots& recent_ = state.recent.slots;
};

TEST_F(StartUpTest, TheFirstActivationKeepsItsOrder) {
  EXPECT_THAT(Start("/no such.pmp"),
              ElementsAre(FileError("File '" + AbsolutePath("/no such.pmp") + "' not found."),
                          Message{game_ + " not found.\nExtract Vesmora in Soldat directory for "
                                          "full effect.",
                                  "Warning", MessageIcon::kExclamation}));
  EXPECT_EQ(events.front(), "SetPointer 0") << "a new map comes first";
  std::erase_if(events, [](const std::string& event) {
    return event == "RefreshInfoPanel" || event.starts_with("SetPointer");
  });
  EXPECT_THAT(events, ElementsAre("RestorePlacement", "LayOut", "Show File error", "Read Recent/0",
                                  "Read Recent/1", "Read Recent/2", "Read Recent/3",
                                  "Read Recent/4", "Show Warning", "RedrawMap"))
      << "and nothing is drawn before the end";
  EXPECT_EQ(WindowTitle("1.2", "BETA") + WindowTitle("1.2", "Beta"),
            "Vesmora  1.2 BETAVesmora  1.2");
}

TEST_F(StartUpTest, OneArgumentNamesAFile) {
  PutFile(game_, {});
  const std::string map = PutMap("my map.PmP");
  const Message unknown{"Unknow filetype", "Argument file open", MessageIcon::kCritical};
  const std::string absolute = AbsolutePath("a.pmp");
  using Row = std::tuple<std::string, std::string, std::vector<Message>>;
  for (const auto& [arguments, opened, messages] :
       {Row("  .pmp  ", "", {}), Row("\"ab\"", "", {}), Row("abcde", "", {unknown}),
        Row("\"   \"", "", {unknown}), Row("map.pmp.txt", "", {unknown}),
        Row("a.pmp", "", {FileError("File '" + absolute + "' not found.")}),
        Row("  " + map + " ", map, {}), Row(" \"" + map + "\" ", map, {})}) {
    EXPECT_EQ(Start(arguments), messages) << arguments;
    EXPECT_EQ(document.fileName, opened.empty() ? "" : AbsolutePath(opened)) << arguments;
  }
  settings.values = {{"Recent/0", "/maps/a.pmp"}, {"Recent/Path", "/last/"}};
  Start(map);
  EXPECT_THAT(recent_, ElementsAre("/maps/a.pmp", "", "", "", "")) << "no recent one";
  EXPECT_EQ(settings.values["Recent/Path"], "/last/");
  EXPECT_THAT(Start(PutMap("a.Pre", "bunker.pre")), IsEmpty());
  EXPECT_GE(document.lastPolygon, 0);
  EXPECT_FALSE(selection.Empty() || journal.caption == "&Undo Import");
}

TEST_F(StartUpTest, RecentFilesOpenOrLeaveTheirSlot) {
  const std::string a = PutMap("a.pmp");
  const std::string c = PutMap("c.pmp");
  // Emptied is the chosen slot, also when its neighbour names the same lost file.
  recent_ = {a, "/gone.pmp", c, "/gone.pmp", ""};
  MenuRekentti(editor, 3);
  EXPECT_THAT(recent_, ElementsAre(a, "/gone.pmp", c, "", ""));
  EXPECT_EQ(events.back(), "RefreshInfoPanel") << "the menus are shown anew";
  EXPECT_EQ(TakeMessages().size(), 1U);
  MenuRekentti(editor, 2);
  EXPECT_EQ(document.fileName, c);
  EXPECT_THAT(recent_, ElementsAre(c, a, "/gone.pmp", "", ""));
  EXPECT_THAT(settings.values, IsEmpty()) << "kept at the end only";
  files.FailAll("Read", EIO);
  MenuRekentti(editor, 1);
  EXPECT_EQ(recent_[1], a) << "there, but cannot be read now";

  using Row = std::tuple<Slots, std::string, Slots>;
  for (const auto& [before, path, after] :
       {Row({{"A", "B", "C", "D", "E"}}, "F", {{"F", "A", "B", "C", "D"}}),
        Row({{"A", "B", "C", "D", "E"}}, "B", {{"B", "A", "", "C", "D"}}),
        Row({{"A", "B", "", "D", "D"}}, "D", {{"D", "A", "B", "", ""}}),
        Row({{"A", "B"}}, "a", {{"a", "A", "B"}})}) {  // letters' case counts
    RecentFiles recent{before};
    for (int times = 0; times < 2; ++times) AddRecent(recent, path);
    EXPECT_EQ(recent.slots, after) << path;
  }
}

TEST_F(StartUpTest, TheEndKeepsSettingsAndThenDeletesTheSnapshots) {
  Snapshot("Move");
  const std::string snapshot = journal.NewestFile();
  recent_ = {"  /maps/a b.pmp ", "a.pm", "/maps/c.pmp", "", ""};
  window.placement = {.state = 2, .top = -7, .left = 8, .width = {}, .height = 700};
  settings.onWrite = [&] { EXPECT_TRUE(std::filesystem::exists(snapshot)); };
  CleanUp(editor);
  EXPECT_FALSE(std::filesystem::exists(snapshot));
  LoadRecent(state.recent, settings);
  EXPECT_EQ(recent_, (Slots{"/maps/a b.pmp", "a.pm", "/maps/c.pmp", "", ""}));
  EXPECT_FALSE(RecentMenuItemOf(state.recent, 1).visible ||
               RecentMenuItemOf(state.recent, 3).visible);
  EXPECT_EQ(RecentMenuItemOf(state.recent, 2).caption, "&3 /maps/c.pmp");
  const WindowPlacement again = LoadPlacement(settings);
  EXPECT_THAT((std::array{again.state, again.top, again.left, again.width, again.height}),
              ElementsAre(2, -7, 8, std::nullopt, 700));
  using Row = std::pair<std::string, std::optional<int>>;
  for (const auto& [text, width] :
       {Row("wide", {}), Row("-999", {}), Row("nan", {}), Row("1e999", {}), Row(" -12 ", -12),
        Row("2.5pt", 2), Row("32768", 32767)}) {
    settings.values["Windows/Width"] = text;
    EXPECT_EQ(LoadPlacement(settings).width, width) << text;
  }
}

TEST_F(StartUpTest, AWindowCanAlwaysBeReached) {
  using Rect = ScreenRect;
  using Row = std::tuple<Rect, int, Rect>;  // where it stood, the screens, where it comes up
  const std::vector<Rect> screens = {{0, 0, 1920, 1080}, {-1280, 100, 1280, 1024}};
  for (const auto& [place, count, expected] :
       {Row({-780, 50, 900, 700}, 1, {-780, 50, 900, 700}),  // 120 pixels to drag by
        Row({-790, 50, 900, 700}, 1, {0, 50, 900, 700}),
        Row({1900, 50, 900, 700}, 1, {1020, 50, 900, 700}),
        Row({100, -650, 900, 700}, 1, {100, 28, 900, 700}),    // the title bar is above
        Row({100, 1080, 900, 700}, 1, {100, 1080, 900, 700}),  // its bar can be seen
        Row({32767, 32767, 32767, 32767}, 1, {0, 28, 1920, 1080}),
        Row({-1250, 200, 1900, 1060}, 2, {-1250, 200, 1280, 1024}),
        Row({10, 1100, 1900, 700}, 1, {10, 380, 1900, 700})}) {  // eight rows are no handle
    const Rect fitted =
        FitToScreens(place, std::span(screens).first(static_cast<std::size_t>(count)));
    EXPECT_EQ(fitted, expected) << place.left << "," << place.top << " gave " << fitted.left << ","
                                << fitted.top;
  }
}

}  // namespace
}  // namespace vesmora
