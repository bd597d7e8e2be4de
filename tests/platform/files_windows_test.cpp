// What only this system has: files held by other programs, attributes, its own INI calls and code
// pages.
#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>

#include "platform/code_page_windows.h"
#include "platform/profile_files.h"
#include "platform/temp_folder.h"
#include "platform/wide_text_windows.h"
#include "support/file_contents.h"

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
  for (const DWORD share :
       {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
    Put(path, kOld);
    const HANDLE held = OpenElsewhere(path, share);
    const FileStatus status = WriteFileDurably(SystemFileCalls(), path, kNew);
    EXPECT_EQ(status.failure, FileFailure::kError);
    EXPECT_EQ(status.reason, ErrorText(ERROR_SHARING_VIOLATION));
    CloseHandle(held);
    EXPECT_EQ(Get(path), kOld);
    EXPECT_EQ(FilesIn(folder), 1);
  }
  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  const FileStatus status = WriteFileDurably(SystemFileCalls(), path, kNew);
  EXPECT_EQ(status.reason, ErrorText(ERROR_ACCESS_DENIED));
  EXPECT_EQ(Get(path), kOld);
  EXPECT_EQ(FilesIn(folder), 1);
  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsTempFolder, IsTheUsersOwnAndEachEditorHoldsOne) {
  FileCalls& calls = SystemFileCalls();
  const ScratchFolder folder;
  const auto [temp, problem] = PrivateTempFolder(calls, folder / "last/");
  EXPECT_EQ(problem, "");
  EXPECT_EQ(fs::path(Wide(temp)), fs::temp_directory_path());
  EXPECT_TRUE(temp.ends_with('\\')) << temp;

  std::vector<UndoFolder> held;
  for (const char* name : {"", "Vesmora2/", "Vesmora3/"}) {
    held.push_back(HoldUndoFolder(calls, folder.Path()));
    EXPECT_EQ(held.back().path, folder / name);
    EXPECT_TRUE(IsStillHeld(calls, held.back()));
  }
  held[1] = {};
  const auto abandoned = HoldAbandonedFolders(calls, folder.Path(), held[2]);
  EXPECT_TRUE(abandoned.size() == 1 && abandoned[0].path == folder / "Vesmora2/");
  EXPECT_EQ(HoldUndoFolder(calls, folder / "no\\such\\").path, "");
}

TEST(WindowsProfileFiles, OneKeyChangesThroughTheSystem) {
  const ScratchFolder folder;
  ProfileFiles profiles(SystemFileCalls());
  const std::string path = folder / "soldat.ini";
  const std::string text = "[CONFIG]\r\nGameStyle=7\r\n[GAME]\r\nGamestyle=3\r\nOther=a b\r\n";
  Put(path, {reinterpret_cast<const std::byte*>(text.data()),
             reinterpret_cast<const std::byte*>(text.data() + text.size())});
  EXPECT_EQ(profiles.ReadInt(path, "GAME", "GameStyle", 9), 3);
  EXPECT_EQ(profiles.ReadInt(path, "GAME", "None", 9), 9);
  EXPECT_EQ(profiles.ReadInt(folder / "none.ini", "GAME", "GameStyle", 9), 9);

  ASSERT_TRUE(profiles.Write(path, "GAME", "GameStyle", "0").Ok());
  std::string changed = text;
  changed[text.find("=3") + 1] = '0';
  const auto bytes = Get(path).value_or(std::vector<std::byte>{});
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()), changed);

  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(profiles.Write(path, "GAME", "GameStyle", "3").reason, ErrorText(ERROR_ACCESS_DENIED));
  EXPECT_EQ(profiles.ReadInt(path, "GAME", "GameStyle", 9), 0);
  EXPECT_EQ(Get(path), bytes);
  SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

std::string Byte(int number) { return {static_cast<char>(static_cast<unsigned char>(number))}; }

TEST(CodePage, EveryByteAndPairComesBack) {
  for (const unsigned number : {1250U, 1251U, 1252U, 1255U, 874U, 932U, 936U, 949U, 950U, 65001U}) {
    const CodePage page(number);
    int lost = 0;
    for (int i = 0; i < 256; ++i) {
      EXPECT_EQ(page.FromUtf8(page.ToUtf8(Byte(i))), Byte(i)) << number << ", byte " << i;
      for (int j = 0; j < 256; ++j) {
        const std::string pair = Byte(i) + Byte(j);
        lost += page.FromUtf8(page.ToUtf8(pair)) != pair ? 1 : 0;
      }
    }
    EXPECT_EQ(lost, 0) << number;
  }
}

TEST(CodePage, KnownCharactersAndNothingSimilar) {
  EXPECT_EQ(CodePage(1251).ToUtf8("\xc6"), "\u0416");
  EXPECT_EQ(CodePage(1251).FromUtf8("\u0416\u00e9"), "\xc6?");  // no "e" for the accented one
  EXPECT_EQ(CodePage(1250).FromUtf8("\u0159\u00f1"), "\xf8?");
  EXPECT_EQ(CodePage(932).ToUtf8("\x93\xfa\x96{"), "\u65e5\u672c");
  EXPECT_EQ(CodePage(932).FromUtf8("a\u65e5\u672c"), "a\x93\xfa\x96{");
  EXPECT_EQ(CodePage(65001).FromUtf8("\u00e9\u0416"), "\xe9?");
}

}  // namespace
}  // namespace vesmora
