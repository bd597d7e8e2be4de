// The game's textures, each read once.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/files.h"
#include "view/texture.h"

namespace vesmora::map_tool {

class TextureStore {
 public:
  /// `folder`: where they lie; when it is empty, in the folder Textures of `gameFolder`, which ends
  /// with a slash, or of the folder above the map's own, as maps lie in the game's folder MAPS.
  TextureStore(FileCalls& files, std::string folder, std::string gameFolder);

  /// The texture that a map file names; null when there is none to be found. Stays where it is.
  const Texture* Find(const std::string& mapPath, const FileContents& map);

 private:
  std::string FolderFor(const std::string& mapPath) const;

  FileCalls& files_;
  std::string folder_;
  std::string gameFolder_;
  std::map<std::string, std::optional<Texture>> textures_;  // by their paths
};

}  // namespace vesmora::map_tool
