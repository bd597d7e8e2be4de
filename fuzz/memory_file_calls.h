// Files that exist in memory only, for fuzz targets: fast, and nothing ever
// reaches the disk. Nothing fails but what must: a missing or an existing name.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "platform/file_calls.h"

namespace vesmora {

/// One flat folder of regular files; links are second names for one content.
class MemoryFileCalls final : public FileCalls {
 public:
  using Bytes = std::vector<std::byte>;

  void Put(const std::string& path, Bytes bytes) {
    files_[path] = std::make_shared<Bytes>(std::move(bytes));
  }
  /// Null when there is no such file.
  const Bytes* Find(const std::string& path) const {
    const auto file = files_.find(path);
    return file == files_.end() ? nullptr : file->second.get();
  }
  std::size_t FileCount() const { return files_.size(); }
  std::size_t OpenHandles() const { return open_.size(); }

  int OpenToRead(const std::string& path) override {
    return files_.contains(path) ? Open(files_[path]) : Failed(ENOENT);
  }
  int CreateNew(const std::string& path, unsigned /*mode*/) override {
    if (files_.contains(path)) return Failed(EEXIST);
    Put(path, {});
    return Open(files_[path]);
  }
  int OpenInPlace(const std::string& path) override {
    if (!files_.contains(path)) Put(path, {});
    return Open(files_[path]);
  }

  std::int64_t Read(int handle, std::span<std::byte> bytes) override {
    OpenFile& file = open_.at(handle);
    const std::span<const std::byte> rest = std::span(*file.bytes).subspan(file.position);
    const std::size_t count = std::min(rest.size(), bytes.size());
    if (count > 0) std::memcpy(bytes.data(), rest.data(), count);
    file.position += count;
    return static_cast<std::int64_t>(count);
  }
  std::int64_t Write(int handle, std::span<const std::byte> bytes) override {
    OpenFile& file = open_.at(handle);
    const std::size_t end = file.position + bytes.size();
    if (file.bytes->size() < end) file.bytes->resize(end);
    if (!bytes.empty()) std::memcpy(file.bytes->data() + file.position, bytes.data(), bytes.size());
    file.position = end;
    return static_cast<std::int64_t>(bytes.size());
  }
  int Sync(int /*handle*/) override { return 0; }
  int Close(int handle) override { return open_.erase(handle) == 1 ? 0 : Failed(EBADF); }
  int InfoOfHandle(int handle, FileInfo& info) override {
    return Describe(*open_.at(handle).bytes, info);
  }
  int KeepAccess(int /*handle*/, const std::string& from) override { return Existing(from); }

  int Info(const std::string& path, FileInfo& info) override {
    const Bytes* bytes = Find(path);
    return bytes != nullptr ? Describe(*bytes, info) : Failed(ENOENT);
  }
  int MayWrite(const std::string& path) override { return Existing(path); }
  int ReadLink(const std::string& path, std::string& /*target*/) override {
    return Failed(files_.contains(path) ? EINVAL : ENOENT);
  }

  int Rename(const std::string& from, const std::string& to) override {
    if (!files_.contains(from)) return Failed(ENOENT);
    files_[to] = files_[from];
    files_.erase(from);
    return 0;
  }
  int Link(const std::string& from, const std::string& to) override {
    if (!files_.contains(from)) return Failed(ENOENT);
    if (files_.contains(to)) return Failed(EEXIST);
    files_[to] = files_[from];
    return 0;
  }
  int Unlink(const std::string& path) override {
    return files_.erase(path) == 1 ? 0 : Failed(ENOENT);
  }

  int SyncFolder(const std::string& /*path*/) override { return 0; }
  int MakeFolder(const std::string& /*path*/, unsigned /*mode*/) override { return 0; }
  int ClaimFolder(const std::string& /*path*/) override { return 0; }
  int ListFolder(const std::string& /*path*/, std::vector<std::string>& names) override {
    for (const auto& [name, bytes] : files_) names.push_back(name);
    return 0;
  }
  std::string LastError() const override { return std::generic_category().message(lastError_); }

 private:
  struct OpenFile {
    std::shared_ptr<Bytes> bytes;
    std::size_t position = 0;
  };

  int Open(const std::shared_ptr<Bytes>& bytes) {
    open_[++lastHandle_] = {bytes};
    return lastHandle_;
  }
  int Existing(const std::string& path) { return files_.contains(path) ? 0 : Failed(ENOENT); }
  int Describe(const Bytes& bytes, FileInfo& info) {
    info = {.kind = FileKind::kRegular,
            .size = bytes.size(),
            .device = 1,
            .number = reinterpret_cast<std::uintptr_t>(&bytes)};
    return 0;
  }
  int Failed(int error) {
    lastError_ = error;
    return -error;
  }

  std::map<std::string, std::shared_ptr<Bytes>> files_;
  std::map<int, OpenFile> open_;
  int lastHandle_ = 0;
  int lastError_ = 0;
};

}  // namespace vesmora
