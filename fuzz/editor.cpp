#include "editor_check.h"
#include "fuzz_main.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vesmora::CheckEditorInput({data, size});
  return 0;
}
