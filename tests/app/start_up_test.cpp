// Start and end, and what the settings keep between runs.
#include "app/start_up.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "app/window_placement.h"
#include "support/bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre, testing::EndsWith, testing::IsEmpty;

using Slots = std::array<std::string, kRecentSlots>;

class StartUpTest : public testing::Test, protected Bench {
 protected:
  /// The messages of a start with these arguments.
  std::vector<Message> Start(const std::string& arguments) {
    editor.redrawSuppressed = true;
    events.clear();
    FirstActivation(editor, arguments);
    return TakeMessages();
  }

  const std::string game_ = folder / "game/Soldat.exe";
  Slots& recent_ = editor.recent.slots;
};

TEST_F(StartUpTest, TheFirstActivationTellsWhatIsMissing) {
  int drawn = 0;
  window.onRedraw = [&] { drawn += editor.redrawSuppressed ? 0 : 1; };
  EXPECT_THAT(Start("/no such.pmp"),
              ElementsAre(FileError("File '" + AbsolutePath("/no such.pmp") + "' not found."),
                          Message{game_ + " not found.\nExtract Vesmora in Soldat directory for "
                                          "full effect.",
                                  "Warning", MessageIcon::kExclamation}));
  EXPECT_EQ(drawn, 1) << "nothing is drawn before the end";
  EXPECT_LT(std::ranges::find(events, "LayOut"), std::ranges::find(events, "Show File error"));
  editor.ports.tempProblem = "It is full.";
  EXPECT_THAT(Start("").back().text, EndsWith("full.\nUndo files go to '" + Temp("'.")));
  editor.ports.tempFolder.clear();
  EXPECT_THAT(Start("").back().text, EndsWith("full.\nNothing can be undone."));
  EXPECT_EQ(WindowTitle("1.2", "BETA") + WindowTitle("1.2", "Beta"),
            "Vesmora  1.2 BETAVesmora  1.2");
}

TEST_F(StartUpTest, OneArgumentNamesAFile) {
  PutFile(game_, {});
  const std::string named = PutMap("my map.PmP");
  const Message unknown{"Unknow filetype", "Argument file open", MessageIcon::kCritical};
  const std::string absolute = AbsolutePath("a.pmp");
  using Row = std::tuple<std::string, std::string, std::vector<Message>>;
  for (const auto& [arguments, opened, messages] :
       {Row("  .pmp  ", "", {}), Row("\"   \"", "", {unknown}), Row("map.pmp.txt", "", {unknown}),
        Row("a.pmp", "", {FileError("File '" + absolute + "' not found.")}),
        Row("  " + named + " ", named, {}), Row(" \"" + named + "\" ", named, {})}) {
    EXPECT_EQ(Start(arguments), messages) << arguments;
    EXPECT_EQ(map.fileName, opened.empty() ? "" : AbsolutePath(opened)) << arguments;
  }
  settings.values = {{"Recent/0", "/maps/a.pmp"}};
  Start(named);
  EXPECT_THAT(recent_, ElementsAre("/maps/a.pmp", "", "", "", "")) << "no recent one";
  EXPECT_THAT(Start(PutMap("a.Pre", "bunker.pre")), IsEmpty());
  EXPECT_GE(map.polygons.last, 0);
  EXPECT_FALSE(selection.Empty() || journal.caption == "&Undo Import");
}

TEST_F(StartUpTest, TheEndKeepsSettingsAndThenDeletesTheSnapshots) {
  Snapshot("Move");
  const std::string snapshot = journal.NewestFile();
  recent_ = {"  /maps/a b.pmp ", "a.pm", "/maps/c.pmp", "", ""};
  window.placement = {.state = 2, .top = -7, .left = 8, .width = {}, .height = 700};
  settings.onWrite = [&] { EXPECT_TRUE(std::filesystem::exists(snapshot)); };
  EXPECT_TRUE(CleanUp(editor));
  EXPECT_FALSE(std::filesystem::exists(snapshot));
  LoadRecent(editor.recent, settings);
  EXPECT_EQ(recent_, (Slots{"/maps/a b.pmp", "a.pm", "/maps/c.pmp", "", ""}));
  EXPECT_FALSE(RecentMenuItemOf(editor.recent, 1).visible);
  EXPECT_EQ(RecentMenuItemOf(editor.recent, 2).caption, "&3 /maps/c.pmp");
  const WindowPlacement again = LoadPlacement(settings);
  EXPECT_THAT((std::array{again.state, again.top, again.left, again.width, again.height}),
              ElementsAre(2, -7, 8, std::nullopt, 700));
  for (const auto& [text, width] : {std::pair("nan", -1), {" -12 ", -12}, {"32768", 32767}}) {
    settings.values["Windows/Width"] = text;
    EXPECT_EQ(LoadPlacement(settings).width.value_or(-1), width) << text;
  }
}

}  // namespace
}  // namespace vesmora
