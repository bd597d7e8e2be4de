#include "app/run_commands.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "app/file_commands.h"
#include "app/program_folders.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::Contains;
using testing::ElementsAre;

class RunCommandsTest : public testing::Test {
 protected:
  static Message RunError(const std::string& text) {
    return {text, "Run error", MessageIcon::kCritical};
  }
  /// What happened, without the redrawing.
  EventLog Landmarks() {
    std::erase_if(bench_.events, [](const std::string& event) {
      return event.starts_with("Re") || event.starts_with("SetPointer");
    });
    return std::exchange(bench_.events, {});
  }

  EditorBench bench_;
  Editor& editor_ = bench_.editor;
  const std::string game_ = AbsolutePath(editor_.ports.gameFolder);
};

TEST_F(RunCommandsTest, AProgramComesToTheFrontOrIsStarted) {
  using Row = std::tuple<void (*)(Editor&), std::string, std::string>;
  for (const auto& [run, title, path] :
       {Row(MenuRunMaker, "Soldat Map Maker", AbsolutePath(game_ + "MapMaker/MapMaker.exe")),
        Row(MenuRunSoldat, "Soldat", game_ + "Soldat.exe")}) {
    const std::string folder = path.substr(0, path.find_last_of("/\\") + 1);
    run(editor_);
    EXPECT_THAT(Landmarks(), ElementsAre("ActivateWindow " + title, "Show Run error"));
    std::filesystem::create_directories(folder);
    PutFile(path, {});
    bench_.programs.problem = "Wine is missing.";
    run(editor_);
    EXPECT_THAT(Landmarks(), Contains("Start " + path + " in " + folder));
    EXPECT_THAT(bench_.TakeMessages(),
                ElementsAre(RunError(path + " not found"),
                            RunError(path + " could not be started: Wine is missing.")));
    bench_.programs.windows = {title};
    run(editor_);
    EXPECT_THAT(bench_.TakeEvents(), ElementsAre("ActivateWindow " + title));
  }
}

TEST_F(RunCommandsTest, TheWindowStepsAsideForAGameThatPlaysTheMap) {
  const std::string start = "Start " + game_ + "Soldat.exe in " + game_;
  const std::string list = game_ + "mapslist.txt";
  OpenMap(editor_, bench_.PutMap("ctf_a.pmp"));
  PutFile(game_ + "Soldat.exe", {});
  std::filesystem::create_directory(game_ + "MAPS");
  PutFile(game_ + "MAPS/ctf_a.pmp", {});
  for (const std::string problem : {"", "Wine is missing."}) {
    bench_.programs.problem = problem;
    Landmarks();
    MenuRunSoldat(editor_);
    EventLog expected = {"Write Windows/Height", "Minimize", start, "RunPendingEvents"};
    if (!problem.empty()) expected = {"Minimize", start, "Unminimize", "Show Run error"};
    const EventLog asked = Landmarks();
    EXPECT_TRUE(std::ranges::equal(std::span(asked).last(4), expected));
    EXPECT_TRUE(std::filesystem::remove(list));
  }
  std::filesystem::remove(game_ + "soldat.ini");
  std::filesystem::create_directory(game_ + "soldat.ini");
  MenuRunSoldat(editor_);
  EXPECT_THAT(Landmarks(), testing::Not(Contains(start))) << "it would play another map";
}

TEST_F(RunCommandsTest, AllGoesOnlyAsFarAsItSucceeds) {
  PutFile(game_ + "Soldat.exe", {});
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre("Show Problem")) << "nothing to compile";
  AddTriangle(bench_.map, {{{0, 0}, {60, 0}, {0, 60}}});
  const std::string path = bench_.folder / "map.pmp";
  bench_.dialogs.chosenFiles = {bench_.folder / "no such folder/map.pmp", path};
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre("ChooseFileToSave", "Show File error"));
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), Contains("Start " + game_ + "Soldat.exe in " + game_));
  EXPECT_EQ(bench_.map.sectorDivision, 2) << "compiled";
}

/// Inside the game's folder, installed for the system, or alone, where it stays so that
/// messages name a folder the user knows.
TEST(ProgramFoldersTest, TheGameIsAboveOrWhereTheUserSays) {
  const ScratchFolder folder;
  const std::string program = folder / "Vesmora/";
  const auto find = [&program](const char* named) {
    const ProgramFolders found = FindProgramFolders(SystemFileCalls(), program, named);
    return std::pair(found.program, found.game);
  };
  using Found = std::pair<std::string, std::string>;
  EXPECT_EQ(find(""), Found(program, folder.Path()));
  const std::string shared = folder / "share/vesmora/";
  std::filesystem::create_directories(shared);
  EXPECT_EQ(find(""), Found(shared, folder.Path()));
  EXPECT_EQ(find("/games/Soldat"), Found(shared, "/games/Soldat/"));
  EXPECT_EQ(find("/games/Soldat/"), Found(shared, "/games/Soldat/"));
  PutFile(folder / "Soldat.exe", {});
  std::filesystem::create_directories(program + "Prefab");
  EXPECT_EQ(find("/elsewhere"), Found(program, folder.Path())) << "nothing else counts";
}

}  // namespace
}  // namespace vesmora
