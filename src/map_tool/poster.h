// Many maps in one picture: a tile each, with the map's name below it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "map_tool/commands.h"

namespace vesmora::map_tool {

struct PosterLayout {
  int columns = 1;
  int rows = 1;
  int tileWidth = 0;  // pixels, of a map's picture
  int tileHeight = 0;
  std::string problem;  // in words, when there is no room

  int Width() const;
  int Height() const;
};

/// For so many maps; tiles of the size that was asked for, or one that suits.
PosterLayout LayOutPoster(std::size_t count, const PictureOptions& options);

/// Draws one map for a poster: `bytes` are its pixels, or SVG elements.
Outcome DrawTile(const Task& task, const PosterLayout& layout, bool isSvg, Workbench& bench);

class Poster {
 public:
  Poster(const PosterLayout& layout, bool isSvg);

  /// Puts in what DrawTile made of map `index`; a map that could not be read leaves an empty tile.
  void Put(std::size_t index, const std::string& name, const std::vector<std::byte>& tile);
  /// The whole file; nothing can be put in after.
  std::vector<std::byte> TakeFile();

 private:
  void PutPixels(int left, int top, const std::string& name, const std::vector<std::byte>& tile);
  void PutElements(int left, int top, const std::string& name, const std::vector<std::byte>& tile);

  PosterLayout layout_;
  bool isSvg_;
  std::vector<std::uint32_t> pixels_;
  std::string elements_;
};

}  // namespace vesmora::map_tool
