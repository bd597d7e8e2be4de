#include "fuzz_main.h"
#include "prefab_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vesmora::CheckPrefabInput({data, size});
  return 0;
}
