// What only this system has: files held by other programs, attributes, its own INI calls.
#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>

#include "platform/profile_files.h"
#include "platform/temp_folder.h"
#include "platform/wide_text_windows.h"
#include "support/durable_write.h"

namespace vesmora {
namespace {

HANDLE OpenElsewhere(const std::string& path, DWORD share) {
  return CreateFileW(Wide(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
}

std::ptrdiff_t FilesIn(const ScratchFolder& folder) {
  return std::distance(fs::directory_iterator(Wide(folder.Path())), {});
}

TEST(WindowsFiles, NamesAndSlashesOfAllKinds) {
  const ScratchFolder folder;
  const std::string name = "K\u00e4ytt\u00f6 \u5730\u56fe \U0001F600.pmp";
  ASSERT_TRUE(WriteFileDurably(SystemFileCalls(), folder / name, kNew).Ok());
  EXPECT_EQ(Get(folder / name), kNew);
  EXPECT_EQ(ListFiles(SystemFileCalls(), folder.Path()).names, std::vector<std::string>{name});
  std::string turned = AbsolutePath(folder / name);
  EXPECT_EQ(turned.find('/'), std::string::npos);
  EXPECT_TRUE(turned.ends_with("\\" + name) && turned[1] == ':') << turned;
  EXPECT_TRUE(SameFile(SystemFileCalls(), folder / name, turned));
  EXPECT_EQ(AbsolutePath("\\\\server\\share/a/../m.pmp"), "\\\\server\\share\\m.pmp");
  EXPECT_EQ(AbsolutePath("c:/maps/./m.pmp"), "c:\\maps\\m.pmp");
}

TEST(WindowsFiles, AHeldOrProtectedFileStaysAndIsExplained) {
  const ScratchFolder folder;
  const std::string path = folder / "map";
  for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
    Put(path, kOld);
    const HANDLE held = OpenElsewhere(path, share);
    const FileStatus status = WriteFileDurably(SystemFileCalls(), path, kNew);
    EXPECT_EQ(status.failure, FileFailure::kError);
    EXPECT_EQ(status.reason, ErrorText(ERROR_SHARING_VIOLATION));
    CloseHandle(held);
    EXPECT_EQ(Get(path), kOld);
  }
  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  const FileStatus status = WriteFileDurably(SystemFileCalls(), path, kNew);
  EXPECT_EQ(status.reason, ErrorText(ERROR_ACCESS_DENIED));
  EXPECT_EQ(Get(path), kOld);
  EXPECT_EQ(FilesIn(folder), 1);
  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsFiles, AFileThatIsOnlyLookedAtIsReplaced) {
  const ScratchFolder folder;
  const std::string path = folder / "map";
  Put(path, kOld);
  const HANDLE held = OpenElsewhere(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  const FileStatus status = WriteFileDurably(SystemFileCalls(), path, kNew);
  CloseHandle(held);
  EXPECT_EQ(Get(path), status.Ok() ? kNew : kOld) << status.reason;
  EXPECT_EQ(FilesIn(folder), 1);
}

TEST(WindowsFiles, DevicesAndImpossibleNamesAreRefused) {
  FileCalls& calls = SystemFileCalls();
  EXPECT_FALSE(ReadFile(calls, "NUL", 10).status.Ok());
  EXPECT_FALSE(WriteFileDurably(calls, "NUL", kNew).Ok());
  const ScratchFolder folder;
  for (const char* name : {"a?b", "a*b", "a<b", "a|b"}) {
    EXPECT_EQ(ReadFile(calls, folder / name, 10).status.failure, FileFailure::kMissing) << name;
    EXPECT_FALSE(WriteFileDurably(calls, folder / name, kNew).Ok()) << name;
  }
  EXPECT_EQ(FilesIn(folder), 0);
}

TEST(WindowsTempFolder, IsTheUsersOwnAndEachEditorHoldsOne) {
  FileCalls& calls = SystemFileCalls();
  FileStatus status;
  const std::string temp = PrivateTempFolder(calls, status);
  EXPECT_TRUE(status.Ok()) << status.reason;
  EXPECT_EQ(fs::path(Wide(temp)), fs::temp_directory_path());
  EXPECT_TRUE(temp.ends_with('\\')) << temp;

  const ScratchFolder folder;
  EXPECT_EQ(HoldUndoFolder(calls, folder.Path()), folder.Path());
  EXPECT_EQ(HoldUndoFolder(calls, folder.Path()), folder / "Vesmora2\\");
  EXPECT_EQ(HoldUndoFolder(calls, folder.Path()), folder / "Vesmora3\\");
  EXPECT_EQ(HoldUndoFolder(calls, folder / "none\\"), "");
}

TEST(WindowsProfileFiles, OneKeyChangesThroughTheSystem) {
  const ScratchFolder folder;
  const auto profiles = SystemProfileFiles(SystemFileCalls());
  const std::string path = folder / "soldat.ini";
  const std::string text = "[CONFIG]\r\nGameStyle=7\r\n[GAME]\r\nGamestyle=3\r\nOther=a b\r\n";
  Put(path, {reinterpret_cast<const std::byte*>(text.data()),
             reinterpret_cast<const std::byte*>(text.data() + text.size())});
  EXPECT_EQ(profiles->ReadInt(path, "GAME", "GameStyle", 9), 3);
  EXPECT_EQ(profiles->ReadInt(path, "GAME", "None", 9), 9);
  EXPECT_EQ(profiles->ReadInt(folder / "none.ini", "GAME", "GameStyle", 9), 9);

  ASSERT_TRUE(profiles->Write(path, "GAME", "GameStyle", "0").Ok());
  std::string changed = text;
  changed[text.find("=3") + 1] = '0';
  const auto bytes = Get(path).value_or(std::vector<std::byte>{});
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()), changed);

  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(profiles->Write(path, "GAME", "GameStyle", "3").reason, ErrorText(ERROR_ACCESS_DENIED));
  EXPECT_EQ(profiles->ReadInt(path, "GAME", "GameStyle", 9), 0);
  EXPECT_EQ(Get(path), bytes);
  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

}  // namespace
}  // namespace vesmora
