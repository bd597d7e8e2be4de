#include <span>
#include <string_view>

#include "platform/profile_files.h"
#include "platform/profile_text.h"

namespace vesmora {
namespace {

std::string_view TextOf(const FileContents& contents) {
  return {reinterpret_cast<const char*>(contents.bytes.data()), contents.bytes.size()};
}

}  // namespace

std::int32_t ProfileFiles::ReadInt(const std::string& path, const std::string& section,
                                   const std::string& key, std::int32_t fallback) const {
  const FileContents contents = ReadProfile(files_, path);
  const auto value = FindProfileValue(TextOf(contents), section, key);
  return value && !value->empty() ? ProfileNumber(*value) : fallback;
}

FileStatus ProfileFiles::Write(const std::string& path, const std::string& section,
                               const std::string& key, const std::string& value) {
  const FileContents contents = ReadProfile(files_, path);
  if (contents.status.failure == FileFailure::kError) return contents.status;
  const std::string text = WithProfileValue(TextOf(contents), section, key, value);
  if (text == TextOf(contents)) return {};
  return WriteFileDurably(files_, path, std::as_bytes(std::span(text)));
}

}  // namespace vesmora
