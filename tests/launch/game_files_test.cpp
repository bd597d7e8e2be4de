#include "launch/game_files.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <span>

#include "support/bench.h"
#include "support/faulty_file_calls.h"

namespace vesmora {
namespace {

using testing::HasSubstr;
using Text = std::optional<std::string>;  // of a file; none for a missing one

class GameFilesTest : public testing::Test {
 protected:
  void Put(const std::string& name, const Text& text) {
    const std::filesystem::path path = PathOf(folder_ / name);
    std::filesystem::create_directories(path.parent_path());
    std::filesystem::remove_all(path);
    if (!text) return;
    const auto bytes = std::as_bytes(std::span(*text));
    PutFile(folder_ / name, Bytes(bytes.begin(), bytes.end()));
  }
  Text Content(const std::string& name) const {
    if (!std::filesystem::exists(PathOf(folder_ / name))) return std::nullopt;
    std::string text;
    for (const std::byte byte : FileBytes(folder_ / name)) text += static_cast<char>(byte);
    return text;
  }
  std::string PointAt(const std::string& map, FileCalls& files = SystemFileCalls()) {
    return PointGameAt({files, folder_.Path()}, map);
  }

  ScratchFolder folder_;
};

TEST_F(GameFilesTest, OnlyAMapOfTheGamesFolderIsPlayed) {
  const std::string normal = "[GAME]\r\nGameStyle=2\r\n";
  const std::string flags = "[GAME]\r\nGameStyle=3\r\n";
  const std::string ended = "[GAME]\r\nGameStyle=0\r\n";
  for (const std::array<Text, 4>& row : std::vector<std::array<Text, 4>>{
           // The map, the profile, then the list and the profile as they become.
           {"/edited/elsewhere/ctf_ash.pmp", normal, "CTF_ASH\r\n", flags},
           {"C:\\maps\\CtF_\xC3\xA4.PMP", flags, "CTF_\xC4\r\n", flags},
           {"/m/ctf_ash.pmp", std::nullopt, "CTF_ASH\r\n", flags},
           {"/m/Arena.pmp", flags, "ARENA\r\n", ended},
           {"/m/Arena.pmp", std::nullopt, "ARENA\r\n", std::nullopt},
           {"/m/ctf_other.pmp", normal, "Old\n", normal},
           {"", normal, "Old\n", normal},
           {"/m/.pmp", flags, "Old\n", flags}}) {
    for (const char* name : {"ctf_ash.pmp", "CtF_\xC3\xA4.PMP", "Arena.pmp", ".pmp"}) {
      Put(std::string("MAPS/") + name, "");
    }
    Put("mapslist.txt", "Old\n");
    Put("soldat.ini", row[1]);
    EXPECT_EQ(PointAt(*row[0]), "");
    EXPECT_EQ(Content("mapslist.txt"), row[2]) << *row[0];
    EXPECT_EQ(Content("soldat.ini"), row[3]) << *row[0];
  }
}

TEST_F(GameFilesTest, NamesAreFoundInAnyCase) {
  Put("maps/CTF_Ash.pmp", "");
  Put("Soldat.ini", "[game]\r\ngamestyle=1\r\n");
  Put("MapsList.TXT", "old");
  EXPECT_EQ(PointAt("ctf_ash.PMP"), "");
  EXPECT_EQ(Content("Soldat.ini"), "[game]\r\ngamestyle=3\r\n");
  EXPECT_EQ(Content("MapsList.TXT"), "CTF_ASH\r\n");
}

TEST_F(GameFilesTest, BothFilesChangeOrNone) {
  for (const Text& present : {Text("; mine\n[GAME]\nGameStyle=2\n"), Text()}) {
    for (const auto lasting :
         {FaultyFileCalls::Lasting::kOnce, FaultyFileCalls::Lasting::kForGood}) {
      int failures = 0;
      int left = 0;
      for (int n = 1, steps = 1; n <= steps; ++n) {
        Put("MAPS/ctf_ash.pmp", "");
        Put("soldat.ini", present);
        Put("mapslist.txt", present);
        FaultyFileCalls files;
        files.FailCall(n, EIO, lasting);
        const std::string problem = PointAt("ctf_ash.pmp", files);
        steps = files.Count() < n ? n : n + 1;
        const bool isDone = Content("mapslist.txt") == "CTF_ASH\r\n";
        const bool isAsBefore = Content("mapslist.txt") == present;
        const bool isTried = std::ranges::count(files.Names(), "CreateNew") > 0;
        EXPECT_TRUE(problem.empty() ? isDone || !isTried : isAsBefore) << n;
        failures += problem.empty() ? 0 : 1;
        if ((Content("soldat.ini") == present) == isAsBefore) continue;
        ++left;  // a disk that goes for good may keep the first change, but that is told
        EXPECT_THAT(problem, HasSubstr("soldat.ini' could not be put back as it was: "));
      }
      EXPECT_GT(failures, 5);
      EXPECT_EQ(left > 0, lasting == FaultyFileCalls::Lasting::kForGood);
    }
  }
}

}  // namespace
}  // namespace vesmora
