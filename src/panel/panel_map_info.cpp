// The upper part of the panel: the map's name and fill levels, what is shown, and
// what is selected.
#include <algorithm>

#include "panel/panel_parts.h"
#include "platform/single_byte_text.h"
#include "platform/text.h"
#include "view/palette.h"

namespace vesmora {
namespace {

constexpr std::size_t kShortestPath = 6;
constexpr std::size_t kExtensionLength = 4;  // with its dot
constexpr std::size_t kShortestTexture = 4;

/// Characters, not bytes: what is left is sound UTF-8.
std::string_view WithoutLastCharacters(std::string_view text, std::size_t count) {
  while (count > 0 && !text.empty()) {
    const bool isContinuation = (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U;
    text.remove_suffix(1);
    if (!isContinuation) --count;
  }
  return text;
}

std::string MapName(const std::string& fileName) {
  if (fileName.size() < kShortestPath) return {};
  return UpperCase(WithoutLastCharacters(FileNamePart(fileName), kExtensionLength));
}

/// Cuts the fixed field's padding behind a three-letter extension.
std::string TextureText(const TextureName& texture) {
  std::string_view name(texture.data(), texture.size());
  name = name.substr(0, name.find('\0'));
  if (name.size() < kShortestTexture) return {};
  const std::size_t dot = name.find('.');
  if (dot != std::string_view::npos) name = name.substr(0, dot + kExtensionLength);
  return LowerCase(ToUtf8(name));
}

// The panel is computed with every mouse move that picks: texts grow in place, so that
// nothing is allocated for them.

template <typename TableType>
void AddFillLevel(std::string& text, const TableType& table, const char* word) {
  text += std::to_string(table.Count());
  text += '/';
  text += std::to_string(TableType::kCapacity);
  text += word;
}

/// One line of the summary; the endings differ and have no line feed everywhere.
void AddCount(std::string& text, int count, const char* one, const char* several,
              const char* ending) {
  if (count == 0) return;
  text += std::to_string(count);
  text += count == 1 ? one : several;
  text += ending;
}

}  // namespace

void RefreshMapInfo(PanelContents& panel, const Editing& editing) {
  const MapDocument& document = editing.document;
  MapNames& shown = panel.shownNames;
  if (panel.Lkartta1.empty() || shown.fileName != document.fileName ||
      shown.author != document.author || shown.texture != document.texture) {
    shown = {document.fileName, document.author, document.texture};
    panel.Lkartta1 = "Name: " + MapName(document.fileName) +
                     "\nAuthor: \nTexture: " + TextureText(document.texture);
    panel.lAuthor = ToUtf8(TrimBlanks(document.author));
  }
  std::string& levels = panel.Lkartta2;
  levels.clear();
  AddFillLevel(levels, document.polygons, " Polygons\n");
  AddFillLevel(levels, document.spawns, " Spawns\n");
  AddFillLevel(levels, document.sceneries, " Sceneries\n");
  AddFillLevel(levels, document.colliders, " Colliders\n");
  AddFillLevel(levels, document.waypoints, " Waypoints");
  panel.CBtausta1.color = ToRgb(document.backgroundColor1);
  panel.CBtausta2.color = ToRgb(document.backgroundColor2);
}

void RefreshShowBoxes(PanelContents& panel, const Editing& editing) {
  const auto& flags = editing.show.showFlags;
  for (std::size_t i = 0; i + 1 < panel.CBnayta.size(); ++i) {
    panel.CBnayta[i + 1].tick = flags[i] == 0 ? Tick::kOff : Tick::kOn;
  }
  // The seventh flag belongs to no box and must be clear.
  const auto firstClear = std::ranges::find(flags, 0) - flags.begin();
  panel.CBnayta[0].tick = firstClear == 6 ? Tick::kOn : Tick::kOff;

  // What is being added can be hidden neither alone nor with everything.
  const auto tool = static_cast<std::size_t>(editing.document.toolIndex);
  for (std::size_t i = 0; i < panel.CBnayta.size(); ++i) {
    panel.CBnayta[i].enabled = tool == 0 || (i != 0 && i != tool);
  }
}

void RefreshSummary(PanelContents& panel, const Editing& editing) {
  const Selection& selection = editing.selection;
  panel.Fvalinta = "Selected " + std::to_string(selection.TotalCounter() + 1);
  if (selection.Empty()) {
    panel.Lvalinta = "Nothing";
    return;
  }
  std::string& text = panel.Lvalinta;
  text.clear();
  AddCount(text, selection.vertices.Count(), " Vertice", " Vertices", "\n");
  AddCount(text, selection.spawns.Count(), " Spawn", " Spawns", "\n");
  AddCount(text, selection.waypoints.Count(), " Waypoint", " Waypoints", "");
  AddCount(text, selection.sceneries.Count(), " Scenery", " Sceneries", "\n");
  AddCount(text, selection.colliders.Count(), " Collider", " Colliders", "");
}

}  // namespace vesmora
