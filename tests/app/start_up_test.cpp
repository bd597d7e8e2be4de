#include "app/start_up.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/editor_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StartUpTest : public testing::Test {
 protected:
  StartUpTest() { PutFile(bench_.folder / "game/Soldat.exe", {}); }

  /// The messages of a start with these arguments.
  std::vector<Message> Start(const std::string& arguments) {
    bench_.state.redrawSuppressed = true;
    bench_.events.clear();
    FirstActivation(bench_.editor, arguments);
    return bench_.TakeMessages();
  }

  EditorBench bench_;
  RecentFiles& recent_ = bench_.state.recent;
};

TEST_F(StartUpTest, TheTitleNamesTheVersion) {
  EXPECT_EQ(WindowTitle("1.2", ""), "Vesmora  1.2");
  EXPECT_EQ(WindowTitle("1.2", "BETA"), "Vesmora  1.2 BETA");
  EXPECT_EQ(WindowTitle("1.2", "Beta"), "Vesmora  1.2");
}

TEST_F(StartUpTest, TheFirstActivationKeepsItsOrder) {
  std::filesystem::remove(bench_.folder / "game/Soldat.exe");
  const std::string warning = bench_.folder / "game/Soldat.exe";
  const auto messages = Start("/no such.pmp");
  EXPECT_THAT(messages,
              ElementsAre(FileError("File '" + AbsolutePath("/no such.pmp") + "' not found."),
                          Message{warning + " not found.\nExtract Vesmora in Soldat directory for "
                                            "full effect.",
                                  "Warning", MessageIcon::kExclamation}));
  EventLog landmarks;
  for (const std::string& event : bench_.events) {
    const bool isRefresh = event == "RefreshInfoPanel" || event.starts_with("SetPointer");
    if (!isRefresh) landmarks.push_back(event);
  }
  EXPECT_THAT(landmarks, ElementsAre("RestorePlacement", "LayOut", "Show File error",
                                     "Read Recent/0", "Read Recent/1", "Read Recent/2",
                                     "Read Recent/3", "Read Recent/4", "Show Warning", "RedrawMap"))
      << "and nothing is drawn before the end";
  ASSERT_GE(bench_.events.size(), 2U);
  EXPECT_EQ(bench_.events.front(), "SetPointer 0") << "a new map comes first";
  EXPECT_EQ(bench_.events[bench_.events.size() - 2], "RefreshInfoPanel");
}

TEST_F(StartUpTest, OneArgumentNamesAFile) {
  const std::string map = bench_.PutMap("my map.PmP");
  const Message unknown{"Unknow filetype", "Argument file open", MessageIcon::kCritical};
  const std::string absolute = AbsolutePath("a.pmp");
  using Row = std::tuple<std::string, std::string, std::vector<Message>>;
  for (const auto& [arguments, opened, messages] :
       {Row("", "", {}), Row("     ", "", {}), Row(".pmp", "", {}), Row("  .pmp  ", "", {}),
        Row("\"\"", "", {}), Row("\"ab\"", "", {}), Row("abcde", "", {unknown}),
        Row("\"   \"", "", {unknown}), Row("\"\"\"\"\"", "", {unknown}),
        Row("map.pmp.txt", "", {unknown}),
        Row("a.pmp", "", {FileError("File '" + absolute + "' not found.")}), Row(map, map, {}),
        Row("  " + map + " ", map, {}), Row("\"" + map + "\"", map, {}),
        Row(" \"" + map + "\" ", map, {})}) {
    EXPECT_EQ(Start(arguments), messages) << arguments;
    EXPECT_EQ(bench_.document.fileName, opened.empty() ? "" : AbsolutePath(opened)) << arguments;
    EXPECT_EQ(bench_.document.lastPolygon >= 0, !opened.empty());
  }
}

TEST_F(StartUpTest, APrefabIsImportedWithoutAnImportStep) {
  EXPECT_THAT(Start(bench_.PutMap("a.Pre", "bunker.pre")), IsEmpty());
  EXPECT_GE(bench_.document.lastPolygon, 0);
  EXPECT_EQ(bench_.document.fileName, "");
  EXPECT_FALSE(bench_.selection.Empty());
  EXPECT_THAT(bench_.journal.caption, testing::AnyOf("&Undo", "&Undo Move"));
}

TEST_F(StartUpTest, TheCommandLinesMapIsNotARecentOne) {
  bench_.settings.values = {{"Recent/0", "/maps/a.pmp"}, {"Recent/Path", "/last/"}};
  Start(bench_.PutMap("b.pmp"));
  EXPECT_THAT(recent_.slots, ElementsAre("/maps/a.pmp", "", "", "", ""));
  EXPECT_EQ(bench_.settings.values["Recent/Path"], "/last/");
}

TEST_F(StartUpTest, ARecentFileThatIsGoneLeavesAGap) {
  const std::string a = bench_.PutMap("a.pmp");
  const std::string c = bench_.PutMap("c.pmp");
  recent_.slots = {a, bench_.folder / "gone.pmp", c, "", ""};
  MenuRekentti(bench_.editor, 1);
  EXPECT_THAT(recent_.slots, ElementsAre(a, "", c, "", ""));
  EXPECT_EQ(bench_.events.back(), "RefreshInfoPanel") << "the menus are shown anew";
  EXPECT_EQ(bench_.TakeMessages().size(), 1U);
  MenuRekentti(bench_.editor, 2);
  EXPECT_EQ(bench_.document.fileName, c);
  EXPECT_THAT(recent_.slots, ElementsAre(c, a, "", "", ""));
  MenuRekentti(bench_.editor, 0);
  EXPECT_THAT(recent_.slots, ElementsAre(c, a, "", "", ""));
  EXPECT_FALSE(bench_.settings.values.contains("Recent/0")) << "kept at the end only";
  EXPECT_FALSE(bench_.settings.values.contains("Recent/Path"));

  // Emptied is the chosen slot, also when its neighbours name the same lost file.
  recent_.slots = {"/gone.pmp", "/gone.pmp", a, "", ""};
  MenuRekentti(bench_.editor, 1);
  EXPECT_THAT(recent_.slots, ElementsAre("/gone.pmp", "", a, "", ""));
}

TEST_F(StartUpTest, TheEndKeepsSettingsAndThenDeletesTheSnapshots) {
  bench_.Snapshot("Move");
  const std::string snapshot = bench_.journal.NewestFile();
  PutFile(bench_.Temp("backup.pmp"), {});
  recent_.slots = {"/maps/a.pmp", "", "/maps/c.pmp", "", ""};
  bench_.window.placement = {.state = 2, .top = -7, .left = 8, .width = 900, .height = 700};
  bench_.settings.onWrite = [&] { EXPECT_TRUE(std::filesystem::exists(snapshot)); };
  bench_.events.clear();
  CleanUp(bench_.editor);
  EXPECT_THAT(bench_.events,
              ElementsAre("Write Recent/0", "Write Recent/1", "Write Recent/2", "Write Recent/3",
                          "Write Recent/4", "Write Windows/State", "Write Windows/Top",
                          "Write Windows/Left", "Write Windows/Width", "Write Windows/Height"));
  const std::map<std::string, std::string> kept = {{"Recent/0", "/maps/a.pmp"},
                                                   {"Recent/1", ""},
                                                   {"Recent/2", "/maps/c.pmp"},
                                                   {"Recent/3", ""},
                                                   {"Recent/4", ""},
                                                   {"Windows/State", "2"},
                                                   {"Windows/Top", "-7"},
                                                   {"Windows/Left", "8"},
                                                   {"Windows/Width", "900"},
                                                   {"Windows/Height", "700"}};
  EXPECT_EQ(bench_.settings.values, kept);
  EXPECT_FALSE(std::filesystem::exists(snapshot));
  EXPECT_TRUE(std::filesystem::exists(bench_.Temp("backup.pmp")));
}

}  // namespace
}  // namespace vesmora
