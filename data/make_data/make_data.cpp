// Writes the shipped alphabet and prefabs into a folder: make_data FOLDER
// make_data --check FOLDER tells instead whether they are what it would write. Nothing
// here is random, so the files come out the same every time.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "lettering.h"
#include "pieces.h"
#include "platform/files.h"

namespace vesmora {
namespace {

constexpr std::size_t kReadLimit = 1U << 20U;

int Write(const std::vector<DataFile>& files, const std::string& folder) {
  for (const char* part : {"/Alphabet", "/Prefab"}) {
    std::error_code ignored;  // a missing folder shows as soon as a file is written
    std::filesystem::create_directories(folder + part, ignored);
  }
  for (const DataFile& file : files) {
    const std::string path = folder + "/" + file.name;
    const FileStatus status = WriteFileDurably(SystemFileCalls(), path, file.bytes);
    if (status.Ok()) continue;
    std::fprintf(stderr, "%s: %s\n", path.c_str(), status.reason.c_str());
    return 1;
  }
  return 0;
}

int Check(const std::vector<DataFile>& files, const std::string& folder) {
  int differences = 0;
  const auto report = [&differences](const std::string& name, const char* what) {
    std::fprintf(stderr, "%s %s\n", name.c_str(), what);
    ++differences;
  };
  for (const DataFile& file : files) {
    const FileContents stored = ReadFile(SystemFileCalls(), folder + "/" + file.name, kReadLimit);
    if (!stored.status.Ok() || stored.bytes != file.bytes) report(file.name, "is not as made");
  }
  for (const std::string part : {"Alphabet/", "Prefab/"}) {
    for (const std::string& name : ListFiles(SystemFileCalls(), folder + "/" + part).names) {
      if (std::ranges::find(files, part + name, &DataFile::name) == files.end()) {
        report(part + name, "is not made here");
      }
    }
  }
  return differences == 0 ? 0 : 1;
}

int Run(const std::vector<std::string_view>& arguments) {
  std::vector<DataFile> files = MakeAlphabet();
  std::ranges::move(MakePieces(), std::back_inserter(files));
  const std::string folder(arguments.back());
  return arguments.size() == 2 ? Check(files, folder) : Write(files, folder);
}

}  // namespace
}  // namespace vesmora

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  if (arguments.empty() || arguments.size() > 2 ||
      (arguments.size() == 2) != (arguments.front() == "--check")) {
    std::fprintf(stderr, "usage: make_data [--check] FOLDER\n");
    return 2;
  }
  return vesmora::Run(arguments);
}
