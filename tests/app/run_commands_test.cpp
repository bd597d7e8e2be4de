#include "app/run_commands.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "app/file_commands.h"
#include "app/program_folders.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::Contains;

class RunCommandsTest : public testing::Test {
 protected:
  /// What happened, without the redrawing.
  EventLog Landmarks() {
    std::erase_if(bench_.events, [](const std::string& event) {
      return event.starts_with("Re") || event.starts_with("SetPointer");
    });
    return std::exchange(bench_.events, {});
  }

  Bench bench_;
  Editor& editor_ = bench_.editor;
  const std::string game_ = AbsolutePath(editor_.ports.gameFolder);
};

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
