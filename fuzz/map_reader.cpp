#include "fuzz_main.h"
#include "map_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vesmora::CheckMapInput({data, size});
  return 0;
}
