// Runs of vesmora-map in this process, with streams that remember.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "map_tool/map_tool.h"
#include "support/bench.h"

namespace vesmora {

struct MemoryConsole final : Console {
  Bytes input;
  std::string output;
  std::string told;
  bool isTerminal = false;

  FileContents ReadInput(std::size_t limit) override {
    FileContents contents;
    contents.bytes.assign(
        input.begin(), input.begin() + static_cast<std::ptrdiff_t>(std::min(input.size(), limit)));
    contents.size = contents.bytes.size();
    return contents;
  }
  FileStatus Write(std::span<const std::byte> bytes) override {
    output.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return {};
  }
  void Tell(std::string_view text) override { told += text; }
  bool OutputIsTerminal() const override { return isTerminal; }
  bool ErrorIsTerminal() const override { return isTerminal; }
};

/// One run after the other, on files of a scratch folder.
struct ToolRun {
  ScratchFolder folder;
  FaultyFileCalls files;
  MemoryConsole console;
  bool wantsColors = true;

  /// The status it ends with; what it wrote is in `console`, "@/" in `words` names the folder.
  int operator()(std::vector<std::string> words) {
    console.output.clear();
    console.told.clear();
    for (std::string& word : words) {
      if (word.starts_with("@/")) word = folder.Path() + word.substr(2);
    }
    map_tool::World world{.console = console,
                          .files = files,
                          .random = [] { return 0.5; },
                          .tempFolder = [this] { return folder / "temp/"; },
                          .processors = 2,
                          .gameFolder = {},
                          .wantsColors = wantsColors};
    return map_tool::RunMapTool(words, world);
  }
  /// Puts a file of tests/data into the folder.
  void Put(const std::string& name, const std::string& source = "small.pmp") {
    PutFile(folder / name, FileBytes(DataPath(source)));
  }
  /// A text with the folder's name as "@/".
  std::string Shortened(std::string text) const {
    for (std::size_t at = 0; (at = text.find(folder.Path(), at)) != std::string::npos;) {
      text.replace(at, folder.Path().size(), "@/");
    }
    return text;
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(PathOf(folder.Path()))) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
};

/// The maps of tests/data, hostile ones included.
inline std::vector<std::string> AllMaps() {
  std::vector<std::string> names;
  for (const std::string folder : {"", "hostile/"}) {
    for (const auto& entry : std::filesystem::directory_iterator(PathOf(DataPath(folder)))) {
      const std::string name = entry.path().filename().string();
      if (name.ends_with(".pmp")) names.push_back(folder + name);
    }
  }
  std::ranges::sort(names);
  return names;
}

}  // namespace vesmora
