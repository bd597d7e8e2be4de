// What the commands tell and draw of every map of tests/data, and what they tell of single bytes,
// against a record: the first lines as they are, and a sum of all. VESMORA_RECORD=1 records anew.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "document/checksum.h"
#include "support/record.h"
#include "support/tool_run.h"

namespace vesmora {
namespace {

constexpr int kLines = 6;

std::string Digest(const std::string& text, int lineCount) {
  std::string digest;
  std::istringstream lines(text);
  std::string line;
  const int shown = text.starts_with("\x89PNG") ? 0 : lineCount;
  for (int i = 0; i < shown && std::getline(lines, line); ++i) digest += "  " + line + "\n";
  return digest + "  = " + std::to_string(Checksum(std::as_bytes(std::span(text)))) + "\n";
}

TEST(RecordedResultsTest, AreAsTheyWere) {
#ifdef _WIN32
  GTEST_SKIP() << "names have backslashes";
#endif
  ToolRun run;
  const std::vector<std::vector<std::string>> commands = {
      {"info", "@/map.pmp"},
      {"check", "@/map.pmp"},
      {"check", "--json", "@/map.pmp"},
      {"diff", "@/map.pmp", "@/small.pmp"},
      {"diff", "--json", "@/saved.pmp", "@/map.pmp"},
      {"render", "@/map.pmp", "-o", "-", "--size", "320x200"},
      {"render", "--svg", "--show", "all", "--zoom", "100", "@/map.pmp", "-o", "-"},
      {"render", "--filled", "@/map.pmp", "-o", "-"},
      {"render", "--poster", "@/map.pmp", "@/small.pmp", "-o", "-"},
      {"prefab", "import", "@/new.pre", "--at", "-30.5,12", "@/map.pmp", "-o", "@/with.pmp"},
      {"diff", "@/saved.pmp", "@/with.pmp"},
      {"prefab", "export", "--json", "@/map.pmp", "-o", "@/out.pre"}};
  run.Put("small.pmp");
  run.Put("new.pre", "large.pre");
  std::string results;
  for (const std::string& name : AllMaps()) {
    run.Put("map.pmp", name);
    run({"resave", "@/map.pmp", "-o", "@/saved.pmp"});
    for (const auto& words : commands) {
      const int status = run(words);
      results += name + " " + words[0] + ": " + std::to_string(status) + "\n" +
                 Digest(run.Shortened(run.console.output + run.console.told), kLines);
    }
  }
  CompareWithRecord("recorded_results.txt", results);
}

/// What is told of every byte of a record, one of each kind, that has changed.
TEST(RecordedResultsTest, TellEachByteThatDiffers) {
#ifdef _WIN32
  GTEST_SKIP() << "names have backslashes";
#endif
  ToolRun run;
  Bench bench;
  run.Put("before.pmp", "terrain_compiled.pmp");
  ASSERT_EQ(bench.Load(DataPath("terrain_compiled.pmp")), LoadOutcome::kLoaded);
  std::string results;
  VisitTables(bench.map, [&](auto& table) {
    const auto bytes = std::as_writable_bytes(std::span(&table[table.last / 2], 1));
    for (std::size_t at = 0; at < bytes.size(); ++at) {
      bytes[at] ^= std::byte{0x55};
      WaypointsToFile(bench.map);
      PutFile(run.folder / "after.pmp", ImageOf(bench.map));
      WaypointsToMemory(bench.map);
      bytes[at] ^= std::byte{0x55};
      results += std::to_string(bytes.size()) + "." + std::to_string(at) + ": ";
      run({"diff", "@/before.pmp", "@/after.pmp"});
      results += run.Shortened(run.console.output);
      run({"check", "@/after.pmp"});
      results += Digest(run.Shortened(run.console.output), 0);
    }
  });
  CompareWithRecord("recorded_bytes.txt", results);
}

/// What is told of maps in which records have gone, or are new, copied, changed or exchanged.
TEST(RecordedResultsTest, TellWhatRandomEditsDid) {
#ifdef _WIN32
  GTEST_SKIP() << "names have backslashes";
#endif
  ToolRun run;
  std::mt19937 random(1);
  run.Put("before.pmp", "terrain_saved.pmp");
  std::string results;
  for (int i = 0; i < 60; ++i) {
    Bench bench;
    ASSERT_EQ(bench.Load(DataPath("terrain_saved.pmp")), LoadOutcome::kLoaded);
    VisitTables(bench.map, [&](auto& table) {
      for (auto edits = table.Empty() ? 0 : random() % 4; edits > 0; --edits) {
        const auto used = table.Used();
        auto& record = used[random() % used.size()];
        const auto how = random() % 6;
        if (how == 0) record = used.back();
        if (how == 1) std::swap(record, used.front());
        if (how == 2) table.Append(record);
        if constexpr (requires { record.vertices; }) {
          for (PolygonVertex& vertex : record.vertices) vertex.x += how == 5 ? 16 : 0;
        }
        if (how == 3 || (how == 5 && random() % 3 > 0)) {
          const auto bytes = std::as_writable_bytes(std::span(&record, 1));
          bytes[random() % bytes.size()] ^= std::byte{3};
        }
        if (how == 4 && used.size() > 1) {
          std::rotate(&record, &record + 1, &used.back() + 1);
          table.SetCount(table.Count() - 1);
        }
      }
    });
    for (std::uint8_t* byte : {&bench.map.looseByte1, &bench.map.looseByte2, &bench.map.looseByte3,
                               &bench.map.looseByte4, &bench.map.looseByte5}) {
      if (random() % 12 == 0) *byte ^= 1U;
    }
    bench.Write(run.folder / "after.pmp");
    run({"diff", "@/before.pmp", "@/after.pmp"});
    results += std::to_string(i) + ": " + Digest(run.Shortened(run.console.output), 6);
  }
  CompareWithRecord("recorded_edits.txt", results);
}

}  // namespace
}  // namespace vesmora
