#include "app/program_folders.h"

#include "platform/text.h"

namespace vesmora {
namespace {

bool FolderExists(FileCalls& calls, const std::string& path) {
  FileInfo info;
  return calls.Info(path, info) >= 0 && info.kind == FileKind::kFolder;
}

}  // namespace

ProgramFolders FindProgramFolders(FileCalls& calls, const std::string& executableFolder,
                                  const std::string& namedGame) {
  const auto withoutSlash =
      std::string_view(executableFolder).substr(0, executableFolder.size() - 1);
  const std::string above(FolderPart(withoutSlash, "/"));
  ProgramFolders folders{.program = executableFolder, .game = above};
  const std::string shared = above + "share/vesmora/";
  if (!FolderExists(calls, executableFolder + "Prefab") && FolderExists(calls, shared)) {
    folders.program = shared;
  }
  if (!namedGame.empty() && !FileExists(calls, above + "Soldat.exe")) {
    folders.game = namedGame.ends_with('/') ? namedGame : namedGame + "/";
  }
  return folders;
}

}  // namespace vesmora
