// What the commands tell and draw of every map of tests/data, and what they tell of single bytes,
// against a record: the first lines as they are, and a sum of all. VESMORA_RECORD=1 records anew.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "document/checksum.h"
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

/// Compares with what stands in a file of tests/data, or records it.
void Compare(const std::string& file, const std::string& results) {
  const std::string path = DataPath(file);
  const auto bytes = std::as_bytes(std::span(results));
  if (std::getenv("VESMORA_RECORD") != nullptr) PutFile(path, {bytes.begin(), bytes.end()});
  const Bytes known = FileBytes(path);
  const auto differs = std::ranges::mismatch(known, bytes).in2 - bytes.begin();
  EXPECT_TRUE(std::ranges::equal(known, bytes))
      << results.substr(results.rfind(": ", static_cast<std::size_t>(differs)), 2000);
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
      {"render", "--poster", "@/map.pmp", "@/small.pmp", "-o", "-"}};
  run.Put("small.pmp");
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
  Compare("recorded_results.txt", results);
}

/// What is told of every byte of a record, one of each kind, that has changed.
TEST(RecordedResultsTest, TellEachByteThatDiffers) {
#ifdef _WIN32
  GTEST_SKIP() << "names have backslashes";
#endif
  ToolRun run;
  Bench bench;
  run.Put("before.pmp", "small_compiled.pmp");
  ASSERT_EQ(bench.Load(DataPath("small_compiled.pmp")), LoadOutcome::kLoaded);
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
  Compare("recorded_bytes.txt", results);
}

}  // namespace
}  // namespace vesmora
