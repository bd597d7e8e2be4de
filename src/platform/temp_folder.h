// Where temporary files go, and which running editor has which folder.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace vesmora {

struct TempFolder {
  std::string path;     // with a trailing slash; empty when there is none
  std::string problem;  // with the folder that should be used, for the user; empty for none
};

/// A folder of this user's own for temporary files, in which a file was just written. Where users
/// share the system's temporary folder it is one inside that only this user can enter; whatever
/// another user put under its name is left alone, and the one with a rare name that an earlier run
/// made instead is found again. `last`, unless it is empty, serves when the system's temporary
/// folders are no use.
[[nodiscard]] TempFolder PrivateTempFolder(FileCalls& calls, const std::string& last);

inline constexpr int kNotHeld = -1;
inline constexpr int kCannotBeHeld = -2;

/// A lock of a folder that ends with it.
class FolderHold {
 public:
  FolderHold() = default;
  explicit FolderHold(int handle) : handle_(handle) {}
  FolderHold(FolderHold&& other) noexcept : handle_(std::exchange(other.handle_, kNotHeld)) {}
  FolderHold& operator=(FolderHold&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~FolderHold();

  bool IsHeld() const { return handle_ >= 0; }
  bool IsPossible() const { return handle_ != kCannotBeHeld; }

 private:
  int handle_ = kNotHeld;
};

/// A folder for one running editor's undo files.
struct UndoFolder {
  std::string temp;  // the temporary folder that it is, or lies in
  std::string path;  // with a trailing slash like `temp`; empty when there is none
  std::uint64_t device = 0;
  std::uint64_t number = 0;  // both tell it from another one that has got its name
  FolderHold hold = {};      // of nothing where folders cannot be locked
};

/// The temporary folder itself or, while other running editors hold it, a folder inside it of its
/// own. Held as long as the result, or until the program ends, however it ends. Where folders
/// cannot be locked it is always a new one.
[[nodiscard]] UndoFolder HoldUndoFolder(FileCalls& calls, const std::string& tempFolder);

/// False when the folder has gone or another has its name: its files may be another editor's.
bool IsStillHeld(FileCalls& calls, const UndoFolder& folder);

/// Folders in `tempFolder` of editors that have ended without tidying up, each of them held now.
[[nodiscard]] std::vector<UndoFolder> HoldAbandonedFolders(FileCalls& calls,
                                                           const std::string& tempFolder,
                                                           const UndoFolder& own);

// What the systems do differently.

/// Folders that may take temporary files, the best first, with a trailing slash.
std::vector<std::string> SystemTempFolders();

/// Of this user among folders that users share; empty where each has folders of their own.
std::string OwnFolderName();

/// Keeps other running editors out of a folder, named with a trailing slash. A number for
/// LetFolderGo; kNotHeld when one of them has it already, or when it cannot be opened, and
/// kCannotBeHeld where the system cannot do it.
int HoldFolder(const std::string& folder);
void LetFolderGo(int handle);

}  // namespace vesmora
