// What the work on one map has come to.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>
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

/// Of a text, or of pixels.
template <typename Items>
std::vector<std::byte> BytesOf(const Items& items) {
  const auto bytes = std::as_bytes(std::span(items));
  return {bytes.begin(), bytes.end()};
}

}  // namespace vesmora::map_tool
