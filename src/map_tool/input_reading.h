// The bytes of what a command works on.
#pragma once

#include <optional>
#include <string>

#include "document/prefab_file.h"
#include "map_tool/inputs.h"
#include "platform/console.h"

namespace vesmora::map_tool {

/// Into the memory of the file that was read before, where that has the same size.
void ReadInput(FileCalls& files, Console& console, const Input& input, FileContents& file);

/// Empty, or in words why there is no prefab.
std::string ReadPrefabFile(FileCalls& files, const std::string& path,
                           std::optional<Prefab>& prefab);

}  // namespace vesmora::map_tool
