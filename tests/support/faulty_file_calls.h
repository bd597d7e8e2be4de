// A FileCalls that passes on to another one and misbehaves where a test wants it to.
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_calls.h"

namespace vesmora {

class FaultyFileCalls final : public FileCalls {
 public:
  enum class Lasting { kOnce, kForGood };

  explicit FaultyFileCalls(FileCalls& real = SystemFileCalls()) : real_(real) {}

  // Calls are counted from 1, every method but LastError being a call. A failing call
  // does nothing, except that Close still closes.

  void FailCall(int number, int error, Lasting lasting = Lasting::kOnce);
  /// Every call of the method with this name, such as "SyncFolder".
  void FailAll(const std::string& name, int error) { failingNames_[name] = error; }
  /// Ends the process, as a kill would, before this call. For forked children.
  void ExitBefore(int number, int exitCode);
  /// A disk with room for this many bytes a file: a write over it is cut, then ENOSPC.
  void LimitFileSize(std::uint64_t bytes) { sizeLimit_ = bytes; }
  /// No read or write moves more than this.
  void LimitTransfer(std::size_t bytes) { transferLimit_ = bytes; }
  /// A lying disk: the byte at this offset of a file lands there changed.
  void SpoilWrittenByte(std::uint64_t offset) { spoiled_ = offset; }

  int Count() const { return static_cast<int>(names_.size()); }
  /// The methods called so far, in order.
  const std::vector<std::string>& Names() const { return names_; }

  int OpenToRead(const std::string& path) override;
  int CreateNew(const std::string& path, unsigned mode) override;
  int OpenInPlace(const std::string& path) override;
  std::int64_t Read(int handle, std::span<std::byte> bytes) override;
  std::int64_t Write(int handle, std::span<const std::byte> bytes) override;
  int Sync(int handle) override;
  int Close(int handle) override;
  int InfoOfHandle(int handle, FileInfo& info) override;
  int KeepAccess(int handle, const std::string& from) override;
  int Info(const std::string& path, FileInfo& info) override;
  int MayWrite(const std::string& path) override;
  int ReadLink(const std::string& path, std::string& target) override;
  int Rename(const std::string& from, const std::string& to) override;
  int Link(const std::string& from, const std::string& to) override;
  int Unlink(const std::string& path) override;
  int SyncFolder(const std::string& path) override;
  int MakeFolder(const std::string& path, unsigned mode) override;
  int ClaimFolder(const std::string& path) override;
  int ListFolder(const std::string& path, std::vector<std::string>& names) override;
  std::string LastError() const override { return lastError_; }

 private:
  template <typename Call>
  auto Step(const char* name, Call call) -> decltype(call());
  int InjectedError(const std::string& name) const;
  int Failed(int error);

  FileCalls& real_;
  std::vector<std::string> names_;
  std::map<std::string, int> failingNames_;
  int failingCall_ = 0;
  int failingError_ = 0;
  Lasting lasting_ = Lasting::kOnce;
  int exitCall_ = 0;
  int exitCode_ = 0;
  std::uint64_t sizeLimit_ = std::numeric_limits<std::uint64_t>::max();
  std::size_t transferLimit_ = std::numeric_limits<std::size_t>::max();
  std::optional<std::uint64_t> spoiled_;
  std::map<int, std::uint64_t> written_;  // by handle: bytes so far
  std::string lastError_;
};

}  // namespace vesmora
