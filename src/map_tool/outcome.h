// What the work on one map has come to.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "map_tool/exit_status.h"

namespace vesmora::map_tool {

/// Keys keep the order in which they are set.
using Json = nlohmann::ordered_json;

struct Outcome {
  int status = kSuccess;
  std::string text;              // for standard output
  std::string told;              // for standard error
  Json json = Json::object();    // everything, for programs
  std::vector<std::byte> bytes;  // of the file to write; empty when there is none
};

}  // namespace vesmora::map_tool
