// Files that a broken or malicious program could write, and inputs that fuzzing found worth
// keeping. The sanitizers run them, too.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "../fuzz/editor_check.h"
#include "../fuzz/map_tool_check.h"
#include "../fuzz/prefab_check.h"

namespace vesmora {
namespace {

/// Every file of a folder of the repository with this ending, behind these bytes.
template <typename Check>
void ForAll(const std::string& folder, const std::string& ending,
            const std::vector<std::uint8_t>& header, Check check) {
  for (const auto& entry : std::filesystem::directory_iterator(DataPath("../../" + folder))) {
    if (entry.path().extension() != ending) continue;
    SCOPED_TRACE(entry.path().string());
    std::vector<std::uint8_t> input = header;
    std::ifstream file(entry.path(), std::ios::binary);
    input.insert(input.end(), std::istreambuf_iterator<char>(file), {});
    ASSERT_GT(input.size(), header.size());
    check(input);
  }
}

TEST(HostileFilesTest, MapsAreReadDrawnWrittenAndReadAgain) {
  for (const std::uint8_t look : std::vector<std::uint8_t>{1, 7, 15})
    ForAll("tests/data/hostile", ".pmp", {2, 0, look}, CheckMapInput);
  ForAll("tests/data", ".pmp", {2, 0, 2}, CheckMapInput);
}

TEST(HostileFilesTest, MapInputsOfTheFuzzer) {
  ForAll("fuzz/corpus/map_reader", "", {}, CheckMapInput);
}

TEST(HostileFilesTest, TheMapToolFindsOrRefuses) {
  for (const std::uint8_t look : std::vector<std::uint8_t>{2, 13, 31})
    ForAll("tests/data/hostile", ".pmp", {2, 0, look}, CheckMapToolInput);
  ForAll("fuzz/corpus/map_reader", "", {}, CheckMapToolInput);
  ForAll("fuzz/corpus/map_tool", "", {}, CheckMapToolInput);
}

TEST(HostileFilesTest, PrefabsAreTakenWholeOrRefused) {
  for (const std::uint8_t how : std::vector<std::uint8_t>{0, 1, 2}) {
    ForAll("tests/data/hostile", ".pre", {how, 1}, CheckPrefabInput);
    ForAll("tests/data", ".pre", {how, 2}, CheckPrefabInput);
  }
  ForAll("fuzz/corpus/prefab_reader", "", {}, CheckPrefabInput);
}

TEST(HostileFilesTest, EditorInputsOfTheFuzzer) {
  ForAll("fuzz/corpus/editor", "", {}, CheckEditorInput);
}

}  // namespace
}  // namespace vesmora
