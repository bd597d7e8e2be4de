#include "platform/temp_folder.h"

namespace vesmora {
namespace {

#ifdef _WIN32
const std::string kOwnName = "Vesmora";  // the folder serves all of the user's programs
#else
const std::string kOwnName;
#endif

}  // namespace

std::string HoldUndoFolder(FileCalls& calls, const std::string& tempFolder) {
  if (tempFolder.empty()) return "";
  if (HoldFolder(tempFolder)) return tempFolder;
  constexpr int kMostEditors = 100;
  for (int number = 2; number <= kMostEditors; ++number) {
    const std::string path = tempFolder + kOwnName + std::to_string(number);
    const std::string folder = path + tempFolder.back();
    if (CreatePrivateFolder(calls, path).Ok() && HoldFolder(folder)) return folder;
  }
  return "";
}

}  // namespace vesmora
