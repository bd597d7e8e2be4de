#include "map_tool/texture_store.h"

#include <algorithm>

#include "document/map_document.h"
#include "document/map_image.h"
#include "launch/game_files.h"
#include "platform/single_byte_text.h"
#include "platform/text.h"

namespace vesmora::map_tool {
namespace {

constexpr std::size_t kReadLimit = 64U << 20U;

/// Without folders: a map names a file of the game, not one of the user's.
std::string NameIn(const FileContents& map) {
  if (map.bytes.size() < kTextureOffset + kTextureLength) return {};
  const auto* text = reinterpret_cast<const char*>(map.bytes.data() + kTextureOffset);
  const std::string_view field(text, kTextureLength);
  return std::string(FileNamePart(ToUtf8(field.substr(0, field.find('\0')))));
}

}  // namespace

TextureStore::TextureStore(FileCalls& files, std::string folder, std::string gameFolder)
    : files_(files), folder_(std::move(folder)), gameFolder_(std::move(gameFolder)) {
  if (!folder_.empty() && !folder_.ends_with('/')) folder_ += '/';
}

std::string TextureStore::FolderFor(const std::string& mapPath) const {
  if (!folder_.empty()) return folder_;
  const std::string own = AbsolutePath(mapPath);
  const std::string maps(FolderPart(own));
  const std::string above(maps.empty() ? maps : FolderPart(maps.substr(0, maps.size() - 1)));
  for (const std::string& game : {gameFolder_, above}) {
    if (game.empty()) continue;
    const std::string textures = GamePath({files_, game}, "Textures");
    FileInfo info;
    if (files_.Info(textures, info) >= 0 && info.kind == FileKind::kFolder) return textures + "/";
  }
  return {};
}

const Texture* TextureStore::Find(const std::string& mapPath, const FileContents& map) {
  const std::string name = NameIn(map);
  const std::string folder = FolderFor(mapPath);
  if (name.empty() || folder.empty()) return nullptr;
  const std::string path = GamePath({files_, folder}, name);
  auto found = textures_.find(path);
  if (found == textures_.end()) {
    const FileContents file = ReadFile(files_, path, kReadLimit);
    found = textures_.emplace(path, ReadBitmap(file.bytes)).first;
  }
  return found->second ? &*found->second : nullptr;
}

}  // namespace vesmora::map_tool
