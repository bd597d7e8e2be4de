// A FileCalls that passes on to another one and misbehaves where a test wants it to.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/file_calls.h"

namespace vesmora {

class FaultyFileCalls final : public FileCalls {
  using Calls = FileCalls;
  using Path = const std::string&;
  using NameList = std::vector<std::string>;

 public:
  enum class Lasting { kOnce, kForGood };

  explicit FaultyFileCalls(FileCalls& real = SystemFileCalls()) : real_(real) {}

  // Calls are counted from 1, every method but LastError being a call. A failing call
  // does nothing, except that Close still closes.

  void FailCall(int number, int error, Lasting lasting = Lasting::kOnce) {
    failingCall_ = number;
    failingError_ = error;
    lasting_ = lasting;
  }
  /// Beside it.
  void FailAlso(int number) { otherFailingCall_ = number; }
  /// Every call of the method with this name, such as "SyncFolder".
  void FailAll(const std::string& name, int error) { failingNameList[name] = error; }
  /// Ends the test, as a kill would the process, before this call: throws `Killed`.
  struct Killed {};
  void DieBefore(int number) { lastCall_ = number; }
  /// A disk with room for this many bytes a file: a write over it is cut, then ENOSPC.
  void LimitFileSize(std::uint64_t bytes) { sizeLimit_ = bytes; }
  /// Runs ahead of each OpenInPlace.
  std::function<void(Path)> onOpenInPlace = [](Path) {};
  /// No read or write moves more than this.
  void LimitTransfer(std::size_t bytes) { transferLimit_ = bytes; }
  /// A lying disk: the byte at this offset of a file lands there changed.
  void SpoilWrittenByte(std::uint64_t offset) { spoiled_ = offset; }

  int Count() const { return static_cast<int>(names_.size()); }
  /// Calls that were made to fail so far.
  int Failures() const { return failures_; }
  /// The methods called so far, in order.
  const std::vector<std::string>& Names() const { return names_; }

  int OpenToRead(Path p) override { return Opened(Pass("OpenToRead", &Calls::OpenToRead, p)); }
  int CreateNew(Path p, unsigned mode) override {
    return Opened(Pass("CreateNew", &Calls::CreateNew, p, mode));
  }
  int OpenInPlace(Path p) override {
    onOpenInPlace(p);
    return Opened(Pass("OpenInPlace", &Calls::OpenInPlace, p));
  }
  std::int64_t Read(int handle, std::span<std::byte> bytes) override {
    return Pass("Read", &Calls::Read, handle, bytes.first(std::min(bytes.size(), transferLimit_)));
  }
  std::int64_t Write(int handle, std::span<const std::byte> bytes) override {
    return Step("Write", [&]() -> std::int64_t {
      std::uint64_t& at = written_[handle];
      const std::uint64_t room = sizeLimit_ - std::min(sizeLimit_, at);
      if (room == 0) return Failed(ENOSPC);
      const auto size = std::min<std::uint64_t>({bytes.size(), room, transferLimit_});
      std::vector<std::byte> data(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
      if (spoiled_ && *spoiled_ >= at && *spoiled_ - at < size)
        data[*spoiled_ - at] ^= std::byte{1};
      const std::int64_t count = real_.Write(handle, data);
      if (count > 0) at += static_cast<std::uint64_t>(count);
      return count;
    });
  }
  int Sync(int handle) override { return Pass("Sync", &Calls::Sync, handle); }
  int Close(int handle) override {
    const int injected = Step("Close", [] { return 0; });
    const int result = real_.Close(handle);
    written_.erase(handle);
    return injected < 0 ? injected : result;
  }
  int InfoOfHandle(int handle, FileInfo& info) override {
    return Pass("InfoOfHandle", &Calls::InfoOfHandle, handle, info);
  }
  int KeepAccess(int h, Path from) override {
    return Pass("KeepAccess", &Calls::KeepAccess, h, from);
  }
  int Info(Path path, FileInfo& info) override { return Pass("Info", &Calls::Info, path, info); }
  int MayWrite(Path path) override { return Pass("MayWrite", &Calls::MayWrite, path); }
  int ReadLink(Path p, std::string& to) override {
    return Pass("ReadLink", &Calls::ReadLink, p, to);
  }
  int Rename(Path from, Path to) override { return Pass("Rename", &Calls::Rename, from, to); }
  int Link(Path from, Path to) override { return Pass("Link", &Calls::Link, from, to); }
  int Unlink(Path path) override { return Pass("Unlink", &Calls::Unlink, path); }
  int SyncFolder(Path path) override { return Pass("SyncFolder", &Calls::SyncFolder, path); }
  int MakeFolder(Path p, unsigned m) override {
    return Pass("MakeFolder", &Calls::MakeFolder, p, m);
  }
  int RemoveFolder(Path path) override { return Pass("RemoveFolder", &Calls::RemoveFolder, path); }
  int ClaimFolder(Path path) override { return Pass("ClaimFolder", &Calls::ClaimFolder, path); }
  /// In no order that anybody could rely on.
  int ListFolder(Path p, NameList& to) override {
    const int result = Pass("ListFolder", &Calls::ListFolder, p, to);
    std::ranges::sort(to);
    if (!to.empty()) std::rotate(to.begin(), to.begin() + 1, to.end());
    return result;
  }
  std::string LastError() const override { return lastError_; }

 private:
  template <typename Call>
  auto Step(const char* name, Call call) -> decltype(call()) {
    names_.emplace_back(name);
    if (Count() == lastCall_) Kill();
    if (const int error = InjectedError(); error != 0) return Failed(error);
    lastError_.clear();
    const auto result = call();
    if (result < 0 && lastError_.empty()) lastError_ = real_.LastError();
    return result;
  }
  template <typename Result, typename... Parameters, typename... Arguments>
  Result Pass(const char* name, Result (Calls::*method)(Parameters...), Arguments&&... arguments) {
    return Step(name, [&] { return (real_.*method)(std::forward<Arguments>(arguments)...); });
  }
  int InjectedError() const {
    const bool later = lasting_ == Lasting::kForGood && Count() > failingCall_;
    const bool isIts = Count() == failingCall_ || Count() == otherFailingCall_;
    if (failingCall_ > 0 && (isIts || later)) return failingError_;
    const auto failing = failingNameList.find(names_.back());
    return failing != failingNameList.end() ? failing->second : 0;
  }
  int Failed(int error) {
    ++failures_;
    lastError_ = std::generic_category().message(error);
    return -error;
  }
  int Opened(int handle) {
    if (handle >= 0) written_[handle] = 0;
    return handle;
  }
  /// The system closes what a process had open.
  void Kill() {
    for (const auto& [handle, bytes] : written_) real_.Close(handle);
    written_.clear();
    throw Killed();
  }

  FileCalls& real_;
  std::vector<std::string> names_;
  std::map<std::string, int> failingNameList;
  int failures_ = 0;
  int failingCall_ = 0;
  int failingError_ = 0;
  int otherFailingCall_ = 0;
  int lastCall_ = 0;
  Lasting lasting_ = Lasting::kOnce;
  std::uint64_t sizeLimit_ = ~std::uint64_t{0};
  std::size_t transferLimit_ = ~std::size_t{0};
  std::optional<std::uint64_t> spoiled_;
  std::map<int, std::uint64_t> written_;  // by open handle: bytes so far
  std::string lastError_;
};

}  // namespace vesmora
