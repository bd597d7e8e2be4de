// What the program is asked to do.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document/world_point.h"
#include "view/show_options.h"

namespace vesmora::map_tool {

enum class Command {
  kInfo,
  kCheck,
  kCompile,
  kResave,
  kRender,
  kDiff,
  kPrefabExport,
  kPrefabImport,
  kRescue,
};

/// Of a picture, so that it fits in the memory of any machine.
inline constexpr std::int64_t kMostPixels = 64'000'000;

struct PictureOptions {
  int width = 1280;  // pixels
  int height = 800;
  bool isSizeTold = false;
  std::optional<float> zoom;  // pixels a world unit; without it the whole map is seen
  std::optional<WorldPoint> center;
  ShowOptions show;
  bool filled = false;
  bool poster = false;
  bool svg = false;      // where the output's name does not tell
  std::string textures;  // the folder they lie in; empty for that of the game
};

struct Arguments {
  Command command = Command::kInfo;
  std::vector<std::string> inputs;  // files, folders, "-"; of a prefab import without the prefab
  std::string prefab;
  std::string output;  // a file, a folder or "-"; empty when none is named
  std::string name;    // what standard input is called
  bool inPlace = false;
  bool json = false;
  bool hints = true;
  int jobs = 1;
  std::optional<WorldPoint> at;
  PictureOptions picture;
};

struct Parsing {
  std::optional<Arguments> arguments;  // none when there is nothing more to do
  int status = 0;                      // with which the program then ends
  std::string output;                  // such as the help
  std::string error;
};

/// `words` without the program's name. `processors` is the number of jobs unless one is asked for.
Parsing ParseArguments(const std::vector<std::string>& words, int processors);

}  // namespace vesmora::map_tool
