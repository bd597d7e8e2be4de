#include <span>
#include <string_view>

#include "platform/profile_files.h"
#include "platform/profile_text.h"

namespace vesmora {
namespace {

std::string_view TextOf(const FileContents& contents) {
  return {reinterpret_cast<const char*>(contents.bytes.data()), contents.bytes.size()};
}

class PlainProfileFiles final : public ProfileFiles {
 public:
  explicit PlainProfileFiles(FileCalls& files) : files_(files) {}

  std::int32_t ReadInt(const std::string& path, const std::string& section, const std::string& key,
                       std::int32_t fallback) override {
    const FileContents contents = ReadProfile(files_, path);
    const auto value = FindProfileValue(TextOf(contents), section, key);
    return value && !value->empty() ? ProfileNumber(*value) : fallback;
  }

  FileStatus Write(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& value) override {
    const FileContents contents = ReadProfile(files_, path);
    const bool isNew = contents.status.failure == FileFailure::kMissing;
    if (!contents.status.Ok() && !isNew) return contents.status;
    const std::string text = WithProfileValue(TextOf(contents), section, key, value);
    if (text == TextOf(contents)) return {};
    return WriteFileDurably(files_, path, std::as_bytes(std::span(text)));
  }

 private:
  FileCalls& files_;
};

}  // namespace

std::unique_ptr<ProfileFiles> SystemProfileFiles(FileCalls& files) {
  return std::make_unique<PlainProfileFiles>(files);
}

}  // namespace vesmora
