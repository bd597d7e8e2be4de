#include "support/faulty_file_calls.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace vesmora {

void FaultyFileCalls::FailCall(int number, int error, Lasting lasting) {
  failingCall_ = number;
  failingError_ = error;
  lasting_ = lasting;
}

void FaultyFileCalls::ExitBefore(int number, int exitCode) {
  exitCall_ = number;
  exitCode_ = exitCode;
}

int FaultyFileCalls::InjectedError(const std::string& name) const {
  const bool later = lasting_ == Lasting::kForGood && Count() > failingCall_;
  if (failingCall_ > 0 && (Count() == failingCall_ || later)) return failingError_;
  const auto failing = failingNames_.find(name);
  return failing != failingNames_.end() ? failing->second : 0;
}

int FaultyFileCalls::Failed(int error) {
  lastError_ = std::generic_category().message(error);
  return -error;
}

template <typename Call>
auto FaultyFileCalls::Step(const char* name, Call call) -> decltype(call()) {
  names_.emplace_back(name);
  if (Count() == exitCall_) std::_Exit(exitCode_);
  if (const int error = InjectedError(names_.back()); error != 0) return Failed(error);
  lastError_.clear();
  const auto result = call();
  if (result < 0 && lastError_.empty()) lastError_ = real_.LastError();
  return result;
}

int FaultyFileCalls::OpenToRead(const std::string& path) {
  return Step("OpenToRead", [&] { return real_.OpenToRead(path); });
}

int FaultyFileCalls::CreateNew(const std::string& path, unsigned mode) {
  const int handle = Step("CreateNew", [&] { return real_.CreateNew(path, mode); });
  written_[handle] = 0;
  return handle;
}

int FaultyFileCalls::OpenInPlace(const std::string& path) {
  const int handle = Step("OpenInPlace", [&] { return real_.OpenInPlace(path); });
  written_[handle] = 0;
  return handle;
}

std::int64_t FaultyFileCalls::Read(int handle, std::span<std::byte> bytes) {
  const auto part = bytes.first(std::min(bytes.size(), transferLimit_));
  return Step("Read", [&] { return real_.Read(handle, part); });
}

std::int64_t FaultyFileCalls::Write(int handle, std::span<const std::byte> bytes) {
  return Step("Write", [&]() -> std::int64_t {
    std::uint64_t& at = written_[handle];
    const std::uint64_t room = sizeLimit_ - std::min(sizeLimit_, at);
    if (room == 0) return Failed(ENOSPC);
    const auto size = std::min<std::uint64_t>({bytes.size(), room, transferLimit_});
    std::vector<std::byte> data(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    if (spoiled_ && *spoiled_ >= at && *spoiled_ - at < size) data[*spoiled_ - at] ^= std::byte{1};
    const std::int64_t count = real_.Write(handle, data);
    if (count > 0) at += static_cast<std::uint64_t>(count);
    return count;
  });
}

int FaultyFileCalls::Sync(int handle) {
  return Step("Sync", [&] { return real_.Sync(handle); });
}

int FaultyFileCalls::Close(int handle) {
  bool closed = false;
  const int result = Step("Close", [&] {
    closed = true;
    return real_.Close(handle);
  });
  if (!closed) real_.Close(handle);
  return result;
}

int FaultyFileCalls::InfoOfHandle(int handle, FileInfo& info) {
  return Step("InfoOfHandle", [&] { return real_.InfoOfHandle(handle, info); });
}

int FaultyFileCalls::KeepAccess(int handle, const std::string& from) {
  return Step("KeepAccess", [&] { return real_.KeepAccess(handle, from); });
}

int FaultyFileCalls::Info(const std::string& path, FileInfo& info) {
  return Step("Info", [&] { return real_.Info(path, info); });
}

int FaultyFileCalls::MayWrite(const std::string& path) {
  return Step("MayWrite", [&] { return real_.MayWrite(path); });
}

int FaultyFileCalls::ReadLink(const std::string& path, std::string& target) {
  return Step("ReadLink", [&] { return real_.ReadLink(path, target); });
}

int FaultyFileCalls::Rename(const std::string& from, const std::string& to) {
  return Step("Rename", [&] { return real_.Rename(from, to); });
}

int FaultyFileCalls::Link(const std::string& from, const std::string& to) {
  return Step("Link", [&] { return real_.Link(from, to); });
}

int FaultyFileCalls::Unlink(const std::string& path) {
  return Step("Unlink", [&] { return real_.Unlink(path); });
}

int FaultyFileCalls::SyncFolder(const std::string& path) {
  return Step("SyncFolder", [&] { return real_.SyncFolder(path); });
}

int FaultyFileCalls::MakeFolder(const std::string& path, unsigned mode) {
  return Step("MakeFolder", [&] { return real_.MakeFolder(path, mode); });
}

int FaultyFileCalls::ClaimFolder(const std::string& path) {
  return Step("ClaimFolder", [&] { return real_.ClaimFolder(path); });
}

int FaultyFileCalls::ListFolder(const std::string& path, std::vector<std::string>& names) {
  return Step("ListFolder", [&] { return real_.ListFolder(path, names); });
}

}  // namespace vesmora
