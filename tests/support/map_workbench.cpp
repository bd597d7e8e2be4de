#include "support/map_workbench.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "document/map_image.h"

namespace vesmora {

std::string DataPath(const std::string& name) {
  return std::string(VESMORA_TEST_DATA) + "/" + name;
}

Bytes FileBytes(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) ADD_FAILURE() << "no file " << path;
  const std::string content(std::istreambuf_iterator<char>(file), {});
  const auto bytes = std::as_bytes(std::span(content));
  return {bytes.begin(), bytes.end()};
}

void PutFile(const std::string& path, const Bytes& bytes) {
  std::ofstream file(PathOf(path), std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) ADD_FAILURE() << "cannot write " << path;
}

Bytes ImageOf(const MapDocument& document) {
  Bytes image(kMapFileSize);
  WriteMapImage(document, nullptr, image);
  return image;
}

DocumentState StateOf(const MapDocument& document) {
  return {ImageOf(document),
          {document.lastPolygon, document.lastSpawn, document.lastScenery, document.lastWaypoint,
           document.lastCollider},
          document.fileName,
          document.author,
          static_cast<int>(document.toolIndex)};
}

LoadOutcome MapWorkbench::LoadBytes(const Bytes& bytes, bool shiftDown) {
  PutFile(folder / "loaded.pmp", bytes);
  return Load(folder / "loaded.pmp", shiftDown);
}

Bytes MapWorkbench::Saved(const std::string& name) {
  const FileStatus status = WriteMap(Context(), folder / name, false);
  EXPECT_TRUE(status.Ok()) << status.reason;
  return status.Ok() ? FileBytes(folder / name) : Bytes{};
}

Bytes MapWorkbench::Snapshot() {
  const FileStatus status = WriteMap(Context(), folder / "undo.tmp", true);
  EXPECT_TRUE(status.Ok()) << status.reason;
  return status.Ok() ? FileBytes(folder / "undo.tmp") : Bytes{};
}

}  // namespace vesmora
