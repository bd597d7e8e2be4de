#include "app/program_folders.h"

namespace vesmora {
namespace {

bool FolderExists(FileCalls& calls, const std::string& path) {
  FileInfo info;
  return calls.Info(path, info) >= 0 && info.kind == FileKind::kFolder;
}

/// Of a folder, with its slash; with the slash.
std::string ParentOf(const std::string& folder) {
  return folder.substr(0, folder.find_last_of('/', folder.size() - 2) + 1);
}

}  // namespace

ProgramFolders FindProgramFolders(FileCalls& calls, const std::string& executableFolder,
                                  const std::string& namedGame) {
  const std::string above = ParentOf(executableFolder);
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
