// What the commands tell and draw of every map of tests/data, against a record: the first lines as
// they are, and a sum of all. VESMORA_RECORD=1 in the environment records anew.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "document/checksum.h"
#include "support/tool_run.h"

namespace vesmora {
namespace {

constexpr int kLines = 6;

std::string Digest(const std::string& text) {
  std::string digest;
  std::istringstream lines(text);
  std::string line;
  const int shown = text.starts_with("\x89PNG") ? 0 : kLines;
  for (int i = 0; i < shown && std::getline(lines, line); ++i) digest += "  " + line + "\n";
  return digest + "  = " + std::to_string(Checksum(std::as_bytes(std::span(text)))) + "\n";
}

TEST(RecordedResultsTest, AreAsTheyWere) {
#ifdef _WIN32
  GTEST_SKIP() << "backslashes of names are doubled in JSON";
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
                 Digest(run.Shortened(run.console.output + run.console.told));
    }
  }
  const std::string path = DataPath("recorded_results.txt");
  const auto bytes = std::as_bytes(std::span(results));
  if (std::getenv("VESMORA_RECORD") != nullptr) PutFile(path, {bytes.begin(), bytes.end()});
  const Bytes known = FileBytes(path);
  const auto differs = std::ranges::mismatch(known, bytes).in2 - bytes.begin();
  EXPECT_TRUE(std::ranges::equal(known, bytes))
      << results.substr(results.rfind(": ", static_cast<std::size_t>(differs)), 2000);
}

}  // namespace
}  // namespace vesmora
