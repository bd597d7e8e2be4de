#include "app/program_folders.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/file_contents.h"

namespace vesmora {
namespace {

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
  Put(folder / "Soldat.exe", {});
  std::filesystem::create_directories(program + "Prefab");
  EXPECT_EQ(find("/elsewhere"), Found(program, folder.Path())) << "nothing else counts";
}

}  // namespace
}  // namespace vesmora
