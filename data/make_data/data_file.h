// A file to ship: its place in the data folder and what is in it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vesmora {

struct DataFile {
  std::string name;  // relative, "Alphabet/97.pre"
  std::vector<std::byte> bytes;
};

}  // namespace vesmora
