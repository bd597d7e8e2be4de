#include "app/run_commands.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "app/file_commands.h"
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
  const std::string& game_ = editor_.ports.gameFolder;
};

TEST_F(RunCommandsTest, TheMapMakerComesToTheFrontOrIsStarted) {
  const std::string folder = AbsolutePath(game_ + "MapMaker/");
  const std::string path = folder + "MapMaker.exe";
  const std::string look = "ActivateWindow Soldat Map Maker";
  MenuRunMaker(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre(look, "Show Run error"));
  std::filesystem::create_directory(game_ + "MapMaker");
  PutFile(path, {});
  MenuRunMaker(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre(look, "Start " + path + " in " + folder));
  bench_.programs.problem = "Wine is missing.";
  MenuRunMaker(editor_);
  EXPECT_THAT(bench_.TakeMessages(),
              ElementsAre(RunError(path + " not found"),
                          RunError(path + " could not be started: Wine is missing.")));
  bench_.events.clear();
  bench_.programs.windows = {"Soldat Map Maker"};
  MenuRunMaker(editor_);
  EXPECT_THAT(bench_.events, ElementsAre(look));
}

TEST_F(RunCommandsTest, TheGameIsStartedWhenAllIsReady) {
  const std::string path = game_ + "Soldat.exe";
  const std::string list = game_ + "mapslist.txt";
  MenuRunSoldat(editor_);
  EXPECT_THAT(bench_.TakeMessages(), ElementsAre(RunError(path + " not found")));
  EXPECT_THAT(Landmarks(), ElementsAre("ActivateWindow Soldat", "Show Run error"));

  OpenMap(editor_, bench_.PutMap("ctf_a.pmp"));
  PutFile(path, {});
  std::filesystem::create_directory(game_ + "MAPS");
  PutFile(game_ + "MAPS/ctf_a.pmp", {});
  EventLog expected = {"ActivateWindow Soldat",
                       "Write Windows/State",
                       "Write Windows/Top",
                       "Write Windows/Left",
                       "Write Windows/Width",
                       "Write Windows/Height",
                       "Minimize",
                       "Start " + path + " in " + game_,
                       "RunPendingEvents"};
  Landmarks();
  MenuRunSoldat(editor_);
  EXPECT_EQ(Landmarks(), expected);
  EXPECT_TRUE(std::filesystem::remove(list));

  bench_.programs.problem = "Wine is missing.";
  expected.back() = "Unminimize";
  expected.emplace_back("Show Run error");
  MenuRunSoldat(editor_);
  EXPECT_EQ(Landmarks(), expected);
  EXPECT_TRUE(std::filesystem::remove(list));
  std::filesystem::remove(game_ + "soldat.ini");
  std::filesystem::create_directory(game_ + "soldat.ini");
  MenuRunSoldat(editor_);
  EXPECT_THAT(Landmarks(), testing::Not(Contains(testing::StartsWith("Start"))));
  EXPECT_EQ(bench_.TakeMessages().front(),
            RunError(path + " could not be started: Wine is missing."));

  bench_.programs.windows = {"Soldat"};
  MenuRunSoldat(editor_);
  EXPECT_THAT(bench_.events, ElementsAre("ActivateWindow Soldat"));
  EXPECT_FALSE(std::filesystem::exists(list));
}

TEST_F(RunCommandsTest, AllGoesOnlyAsFarAsItSucceeds) {
  PutFile(game_ + "Soldat.exe", {});
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre("Show Problem")) << "nothing to compile";
  AddTriangle(bench_.document, {{{0, 0}, {60, 0}, {0, 60}}});
  const std::string path = bench_.folder / "map.pmp";
  bench_.dialogs.chosenFiles = {"", bench_.folder / "no such folder/map.pmp", path};
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre("ChooseFileToSave")) << "cancelled";
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), ElementsAre("ChooseFileToSave", "Show File error"));
  MenuRunAll(editor_);
  EXPECT_THAT(Landmarks(), Contains("Start " + game_ + "Soldat.exe in " + game_));
  MapWorkbench saved;
  saved.Load(path);
  EXPECT_EQ(saved.document.sectorDivision, 2);
  EXPECT_EQ(saved.document.sectors[15 * 31 + 15].count, 1);
}

}  // namespace
}  // namespace vesmora
