#include "app/program_folders.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/editor_bench.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

TEST(ProgramFoldersTest, InTheGameNothingElseCounts) {
  const ScratchFolder game;
  PutFile(game / "Soldat.exe", {});
  std::filesystem::create_directories(game / "Vesmora/Prefab");
  std::filesystem::create_directories(game / "share/vesmora");
  const auto folders = FindProgramFolders(SystemFileCalls(), game / "Vesmora/", "/elsewhere");
  EXPECT_EQ(folders.program, game / "Vesmora/");
  EXPECT_EQ(folders.game, game.Path());
}

TEST(ProgramFoldersTest, InstalledForTheSystemTheUserNamesTheGame) {
  const ScratchFolder prefix;
  std::filesystem::create_directories(prefix / "share/vesmora");
  for (const char* named : {"/games/Soldat", "/games/Soldat/"}) {
    const auto folders = FindProgramFolders(SystemFileCalls(), prefix / "bin/", named);
    EXPECT_EQ(folders.program, prefix / "share/vesmora/");
    EXPECT_EQ(folders.game, "/games/Soldat/");
  }
  EXPECT_EQ(FindProgramFolders(SystemFileCalls(), prefix / "bin/", "").game, prefix.Path());
  // A lone program stays where it is, so that messages name a folder the user knows.
  std::filesystem::remove_all(prefix / "share");
  EXPECT_EQ(FindProgramFolders(SystemFileCalls(), prefix / "bin/", "").program, prefix / "bin/");
}

}  // namespace
}  // namespace vesmora
