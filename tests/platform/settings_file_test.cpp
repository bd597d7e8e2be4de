// The settings and the file they are in.
#include "platform/settings_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "support/file_contents.h"

namespace vesmora {
namespace {

std::string TextOf(const std::string& path) {
  const auto bytes = Get(path).value();
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void PutText(const std::string& path, const std::string& text) {
  const auto bytes = std::as_bytes(std::span(text));
  Put(path, {bytes.begin(), bytes.end()});
}

TEST(SettingsFile, AnyTextComesBackBesideWhatOthersHaveStored) {
  const ScratchFolder folder;
  const std::string path = folder / "a/b/Vesmora.conf";
  SettingsFile first(SystemFileCalls(), path);
  SettingsFile second(SystemFileCalls(), path);
  const std::vector<std::string> texts = {"",   "plain",  " a ;,=\"\\n b ", "\"",
                                          "\\", "\r\n\n", "\xFFno text",    "[x]=y"};
  for (std::size_t i = 0; i < texts.size(); ++i) first.Write("Recent", std::to_string(i), texts[i]);
  EXPECT_EQ(first.Read("Recent", "1", "none"), "plain") << "before it is stored, too";
  ASSERT_TRUE(first.Store().Ok());
  second.Write("Windows", "Width", "80");
  second.Write("Recent", "1", "newer");
  ASSERT_TRUE(second.Store().Ok());
  SettingsFile again(SystemFileCalls(), path);
  for (std::size_t i = 2; i < texts.size(); ++i) {
    EXPECT_EQ(again.Read("Recent", std::to_string(i), "none"), texts[i]);
  }
  EXPECT_EQ(again.Read("Recent", "1", "") + again.Read("Windows", "Width", ""), "newer80");
  EXPECT_EQ(again.Read("Windows", "1", "none"), "none");
}

TEST(SettingsFile, WhatTheToolkitsStoreWroteIsRead) {
  const ScratchFolder folder;
  const std::string text =
      "; people write comments\n[Recent]\n0=\"/home/\xC3\xBC/a, b\\\"c\\\\d.pmp\"\r\n1=\n\n"
      "[Windows]\nState=0\n";
  PutText(folder / "conf", text);
  SettingsFile settings(SystemFileCalls(), folder / "conf");
  EXPECT_EQ(settings.Read("Recent", "0", ""), "/home/\xC3\xBC/a, b\"c\\d.pmp");
  EXPECT_EQ(settings.Read("Recent", "1", "none"), "");
  EXPECT_EQ(settings.Read("Windows", "State", ""), "0");
}

TEST(SettingsFile, AFailureIsToldAndLeavesTheOldOnes) {
  const ScratchFolder folder;
  const std::string path = folder / "conf";
  const std::string old = "[A]\nb=c\nd=e\n";
  int failures = 0;
  for (int call = 1;; ++call) {
    PutText(path, old);
    FaultyFileCalls files;
    SettingsFile settings(files, path);
    settings.Write("A", "b", "new");
    files.FailCall(files.Count() + call, ENOSPC);
    const FileStatus status = settings.Store();
    EXPECT_EQ(TextOf(path), status.Ok() ? "[A]\nb=new\nd=e\n" : old) << files.Names().back();
    failures += status.Ok() ? 0 : 1;
    if (files.Count() < call) break;
  }
  EXPECT_GT(failures, 8);
}

}  // namespace
}  // namespace vesmora
