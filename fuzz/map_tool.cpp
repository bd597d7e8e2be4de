#include "fuzz_main.h"
#include "map_tool_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vesmora::CheckMapToolInput({data, size});
  return 0;
}
