// The program as a shell runs it.
#include <gmock/gmock.h>

#include <csignal>

#include "document/selection.h"
#include "support/map_builder.h"
#include "support/tool_run.h"

namespace vesmora {
namespace {

using testing::HasSubstr;

struct Call {
  std::vector<std::string> words;
  int status;
  std::string output;  // a part of it; empty for nothing at all
  std::string told;    // likewise
};

class MapToolTest : public testing::Test {
 protected:
  MapToolTest() {
    std::filesystem::create_directories(PathOf(run_.folder / "maps/below"));
    run_.Put("maps/b.PMP", "small_compiled.pmp");
    run_.Put("maps/below/c.pmp", "terrain.pmp");
    run_.Put("maps/notes.txt");
    run_.Put("ctf_a.pmp", "small_saved.pmp");
    run_.Put("x.pre", "bunker.pre");
    Bench crowd;
    crowd.Load(DataPath("small.pmp"));
    while (!crowd.map.polygons.Full()) crowd.map.polygons.Append(crowd.map.polygons[0]);
    crowd.map.sectors = {};
    crowd.Write(run_.folder / "crowd.pmp");
    crowd.map = {};
    AddTriangle(crowd.map, {{{0, 0}, {9, 0}, {0, 9}}});
    crowd.Write(run_.folder / "tiny.pmp");
    PutFile(run_.folder / "short.pmp", Bytes(99));
    std::filesystem::create_directories(PathOf(run_.folder / "out"));
    std::filesystem::create_directories(PathOf(run_.folder / "none"));
    run_.console.input = FileBytes(DataPath("small_compiled.pmp"));
  }
  void Expect(const Call& call) {
    std::string line;
    for (const std::string& word : call.words) line += word + " ";
    EXPECT_EQ(run_(call.words), call.status) << line << run_.console.told;
    const auto expect = [&](const std::string& got, const std::string& wanted) {
      EXPECT_THAT(run_.Shortened(got), HasSubstr(wanted)) << line;
      EXPECT_EQ(got.empty(), wanted.empty()) << line << got;
    };
    expect(run_.console.output, call.output);
    expect(run_.console.told, call.told);
  }

  ToolRun run_;
};

TEST_F(MapToolTest, WhatIsAskedIsDoneOrRefused) {
  const std::vector<Call> calls = {
      {{"--help"}, 0, "vesmora-map render --poster maps/", ""},
      {{"check", "--help"}, 0, "2 when a map could not be", ""},
      {{"compile", "--help"}, 0, "1 when something was told", ""},
      {{"--version"}, 0, "vesmora-map " VESMORA_VERSION, ""},
      {{}, 2, "", "subcommand is required"},
      {{"frobnicate"}, 2, "", "frobnicate"},
      {{"prefab", "make"}, 2, "", "\"prefab make\""},
      {{"info"}, 2, "", "MAP is required"},
      {{"info", "@/maps/b.PMP"}, 0, "  polygons    40 of 400\n", ""},
      {{"info", "@/maps"}, 0, "@/maps/below/c.pmp\n", ""},
      {{"info", "@/maps/"}, 0, "@/maps/b.PMP\n", ""},
      {{"info", "-", "--name", "mine.pmp"}, 0, "mine.pmp\n", ""},
      {{"info", "-", "-"}, 2, "", "only once"},
      {{"info", "@/none"}, 2, "", "there are no maps"},
      {{"info", "@/nothing.pmp"}, 2, "", "@/nothing.pmp: not found"},
      {{"info", "@/short.pmp", "@/maps/b.PMP"}, 2, "b.PMP", "it has 99 bytes instead of 502112"},
      {{"check", "-", "--no-hints", "--name", "ctf_b.pmp"}, 0, "", ""},
      {{"check", "@/maps/b.PMP"}, 1, "[flag-map-name]\n", ""},
      {{"check", "@/maps/b.PMP", "@/gone.pmp"}, 2, "[flag-map-name]\n", "not found"},
      {{"check", "@/crowd.pmp"}, 1, "polygons will not fit in full sectors when it is", ""},
      {{"diff", "@/ctf_a.pmp", "@/ctf_a.pmp"}, 0, "", ""},
      {{"diff", "-", "@/maps/b.PMP"}, 0, "", ""},
      {{"diff", "@/ctf_a.pmp", "@/maps/b.PMP"}, 1, "map: changed sector size", ""},
      {{"diff", "@/ctf_a.pmp"}, 2, "", "required"},
      {{"diff", "@/ctf_a.pmp", "@/gone.pmp"}, 2, "", "@/gone.pmp: not found"},
      {{"resave", "@/ctf_a.pmp"}, 2, "", "say where to write"},
      {{"resave", "@/ctf_a.pmp", "-o", "@/new.pmp", "--in-place"}, 2, "", "excludes"},
      {{"resave", "@/ctf_a.pmp", "@/maps/b.PMP", "-o", "@/new.pmp"}, 2, "", "must be a folder"},
      {{"resave", "@/ctf_a.pmp", "@/maps/../ctf_a.pmp", "-o", "@/out"}, 2, "", "two results"},
      {{"resave", "@/maps", "-o", "@/maps"}, 2, "", "one of the files that are read"},
      {{"resave", "-", "--in-place"}, 2, "", "cannot be replaced"},
      {{"resave", "@/short.pmp", "-o", "@/new.pmp"}, 2, "", "is no Soldat 1.0.5b map"},
      {{"resave", "@/maps/b.PMP", "--json", "-o", "-"}, 2, "", "exclude each other"},
      {{"compile", "@/maps", "-o", "@/out"}, 0, "", ""},
      {{"compile", "@/tiny.pmp", "-o", "@/y.pmp"}, 2, "", "The map is too small to compile."},
      {{"prefab", "import", "@/x.pre", "@/ctf_a.pmp", "-o", "@/x.pre"}, 2, "", "is one of"},
      {{"prefab", "import", "@/ctf_a.pmp", "@/ctf_a.pmp", "-o", "@/y.pmp"}, 2, "", "no prefab"},
      {{"prefab", "import", "@/x.pre", "@/ctf_a.pmp", "-o", "@/out/y.pmp", "--at", "-5"},
       2,
       "",
       "--at"},
      {{"rescue", "@/ctf_a.pmp", "-o", "@/y.pmp"}, 2, "", "is no undo file"},
      {{"rescue", "@/maps", "-o", "@/out"}, 2, "", "@/maps is a folder"},
      {{"check", "@/none", "--json"}, 2, "\"error\": \"there are no maps\"", "there are no maps"},
      {{"render", "@/maps", "-o", "@/out", "--textures", "@/none"}, 2, "", "requires --filled"},
      {{"render", "@/maps", "-o", "@/out", "--filled", "--textures", "@/gone"}, 2, "", "no folder"},
      {{"render", "--poster", "@/short.pmp", "-o", "@/y.png"}, 2, "", "it has 99 bytes"},
      {{"compile", "@/ctf_a.pmp", "-o", "@/x.png"}, 2, "", "@/x.png must end in .pmp\n"},
      {{"prefab", "export", "@/ctf_a.pmp", "-o", "@/y.pmp"}, 2, "", "must end in .pre"},
      {{"render", "@/ctf_a.pmp", "-o", "@/maps/b.PMP"}, 2, "", "must end in .png or .svg"},
      {{"render", "@/maps", "--poster", "--svg", "-o", "@/y.png"}, 2, "", "must end in .svg\n"},
      {{"render", "@/ctf_a.pmp", "-o", "@/ctf_a.pmp"}, 2, "", "one of the files"},
      {{"render", "@/ctf_a.pmp", "-o", "@/p.png", "--size", "0x9"}, 2, "", "--size"},
      {{"render", "@/ctf_a.pmp", "-o", "@/p.png", "--size", "9000x9000"}, 2, "", "--size"},
      {{"render", "@/ctf_a.pmp", "-o", "@/p.png", "--zoom", "nan"}, 2, "", "--zoom"},
      {{"render", "@/ctf_a.pmp", "-o", "@/p.png", "--show", "spawns,foo"}, 2, "", "--show"},
      {{"render", "@/maps", "-o", "@/out", "--svg", "--size", "90x60"}, 0, "", ""},
      {{"render", "--poster", "@/maps", "@/gone.pmp", "-o", "@/out/p.png"}, 2, "", "not found"},
      {{"render", "--poster", "@/maps", "-o", "@/out"}, 2, "", "is a folder"},
      {{"render", "--poster", "@/maps", "--json", "-o", "-"}, 2, "", "exclude each other"},
  };
  const auto before = run_.Names();
  for (const Call& call : calls) Expect(call);
  run_.files.FailAll("ListFolder", EACCES);
  Expect({{"info", "@/maps", "@/ctf_a.pmp"}, 2, "@/ctf_a.pmp\n", "@/maps: could not be read: "});
  EXPECT_EQ(run_.Names(), before) << "nothing is left where nothing was to be written";
  const auto written = std::filesystem::directory_iterator(PathOf(run_.folder / "out"));
  std::vector<std::string> names;
  for (const auto& entry : written) names.push_back(entry.path().filename().string());
  EXPECT_THAT(names, testing::UnorderedElementsAre("b.PMP", "b.svg", "c.pmp", "c.svg", "p.png"));
}

TEST_F(MapToolTest, ResultsGoToStandardOutputAsTheyAre) {
  EXPECT_EQ(run_({"resave", "-", "-o", "-"}), 0);
  EXPECT_EQ(run_.console.output.size(), kMapFileSize);
  EXPECT_EQ(run_({"render", "-", "-o", "-"}), 0);
  EXPECT_THAT(run_.console.output, testing::StartsWith("\x89PNG"));
  EXPECT_EQ(run_({"render", "-", "-o", "-", "--svg"}), 0);
  EXPECT_THAT(run_.console.output,
              testing::AllOf(testing::StartsWith("<svg"), testing::EndsWith("</svg>\n")));
  const auto letters = [](int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "\xd0\x96";
    return text;
  };
  const std::string name = "<&\x1b" + letters(60);
  EXPECT_EQ(run_({"render", "--poster", "-", "--name", name, "-o", "-", "--svg"}), 0);
  EXPECT_THAT(run_.console.output, HasSubstr(">&lt;&amp;?" + letters(50) + "</text>"));
}

TEST_F(MapToolTest, ColoursAreForTerminalsAndNothingInAMapReachesThem) {
  Bench bench;
  bench.Load(DataPath("small.pmp"));
  bench.map.author = "a\x1b[31mb\x9d";
  bench.Write(run_.folder / "ctf_a.pmp");
  EXPECT_EQ(run_({"info", "@/ctf_a.pmp"}), 0);
  EXPECT_THAT(run_.console.output, HasSubstr("a?[31mb?"));
  EXPECT_THAT(run_.console.output, testing::Not(HasSubstr("\x1b")));
  run_.console.isTerminal = true;
  EXPECT_EQ(run_({"check", "@/ctf_a.pmp"}), 1);
  EXPECT_THAT(run_.console.output, HasSubstr("\x1b[1;31merror\x1b[0m"));
  EXPECT_EQ(run_({"check", "@/ctf_a.pmp", "--json"}), 1);
  EXPECT_THAT(run_.console.output, testing::Not(HasSubstr("\x1b")));
  run_.wantsColors = false;
  EXPECT_EQ(run_({"check", "@/ctf_a.pmp"}), 1);
  EXPECT_THAT(run_.console.output, testing::Not(HasSubstr("\x1b")));
}

/// Whatever step of a write fails, there is the old file or none, and it is told.
TEST_F(MapToolTest, NoResultIsEverHalfWritten) {
  const std::vector<std::vector<std::string>> commands = {
      {"compile", "@/ctf_a.pmp", "--in-place"},
      {"resave", "@/ctf_a.pmp", "-o", "@/new.pmp"},
      {"render", "@/ctf_a.pmp", "-o", "@/new.png", "--size", "50x50"},
      {"render", "--poster", "@/maps", "-o", "@/new.svg"},
      {"prefab", "export", "@/ctf_a.pmp", "-o", "@/new.pre"}};
  const Bytes map = FileBytes(run_.folder / "ctf_a.pmp");
  for (const auto& command : commands) {
    for (const char* step : {"CreateNew", "Write", "Sync", "Rename"}) {
      SCOPED_TRACE(command.front() + " " + step);
      const auto before = run_.Names();
      FaultyFileCalls broken;
      broken.FailAll(step, ENOSPC);
      map_tool::World world{.console = run_.console,
                            .files = broken,
                            .random = [] { return 0.5; },
                            .tempFolder = [this] { return run_.folder / "temp/"; },
                            .gameFolder = {}};
      std::vector<std::string> words = command;
      for (std::string& word : words) {
        if (word.starts_with("@/")) word = run_.folder / word.substr(2);
      }
      run_.console.told.clear();
      EXPECT_EQ(map_tool::RunMapTool(words, world), 2);
      EXPECT_THAT(run_.console.told, HasSubstr("could not be written"));
      EXPECT_TRUE(FileBytes(run_.folder / "ctf_a.pmp") == map);
      auto after = run_.Names();
      std::erase(after, "temp");
      EXPECT_EQ(after, before);
      std::filesystem::remove_all(PathOf(run_.folder / "temp"));
    }
  }
  EXPECT_EQ(run_({"compile", "@/ctf_a.pmp", "--in-place"}), 0);
  EXPECT_TRUE(FileBytes(run_.folder / "temp/backup.pmp") == map);
  EXPECT_FALSE(FileBytes(run_.folder / "ctf_a.pmp") == map);
  EXPECT_EQ(run_({"resave", "@/maps/below/c.pmp", "-o", "@/maps/b.PMP"}), 0);
  EXPECT_TRUE(FileBytes(run_.folder / "temp/backup.pmp") ==
              FileBytes(DataPath("small_compiled.pmp")));
#ifndef _WIN32
  // What would end the program meanwhile waits until the file is whole.
  map_tool::World world{.console = run_.console,
                        .files = run_.files,
                        .random = [] { return 0.5; },
                        .tempFolder =
                            [this] {
                              std::raise(SIGTERM);
                              return run_.folder / "temp/";
                            },
                        .gameFolder = {}};
  EXPECT_EXIT(
      map_tool::RunMapTool({"compile", run_.folder / "maps/below/c.pmp", "--in-place"}, world),
      testing::KilledBySignal(SIGTERM), "");
  EXPECT_FALSE(FileBytes(run_.folder / "maps/below/c.pmp") == FileBytes(DataPath("terrain.pmp")));
#endif
}

TEST_F(MapToolTest, TexturesAreFoundInTheGamesFolder) {
  const std::vector<std::string> words = {"render", "--filled", "@/maps/below/c.pmp", "-o", "-"};
  const auto picture = [&](std::vector<std::string> more) {
    more.insert(more.begin(), words.begin(), words.end());
    EXPECT_EQ(run_(more), 0) << run_.console.told;
    return run_.console.output;
  };
  const std::string plain = picture({});
  Bytes bitmap(58);  // one black pixel
  for (const auto& [at, value] : {std::pair{0, 'B'},
                                  {1, 'M'},
                                  {10, '\x36'},
                                  {14, '\x28'},
                                  {18, '\x01'},
                                  {22, '\x01'},
                                  {28, '\x18'}}) {
    bitmap[static_cast<std::size_t>(at)] = static_cast<std::byte>(value);
  }
  const std::string own = run_.folder / "maps/tEXTURES";
  std::filesystem::create_directory(PathOf(own));
  EXPECT_TRUE(picture({}) == plain);
  PutFile(own + "/BANANA.BMP", bitmap);
  const std::string textured = picture({});
  EXPECT_FALSE(textured == plain);
  EXPECT_TRUE(picture({"--textures", own}) == textured);
  EXPECT_TRUE(picture({"--textures", run_.folder / "none"}) == plain);
}

}  // namespace
}  // namespace vesmora
