#include "tools/prefab_import.h"

#include "document/prefab_file.h"
#include "platform/text.h"
#include "tools/move_selection.h"
#include "tools/placement.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

constexpr float kSpaceWidth = 20;  // world units

/// Last used slots, to tell later what has been appended.
struct TableEnds {
  std::int16_t polygon;
  std::int16_t scenery;
  std::int16_t collider;
};

TableEnds EndsOf(const MapDocument& document) {
  return {document.lastPolygon, document.lastScenery, document.lastCollider};
}

void SelectAppended(EditingState& state, const TableEnds& before) {
  const MapDocument& document = state.document;
  Selection& selection = state.selection;
  ClearLists(selection);
  for (int slot = before.polygon + 1; slot <= document.lastPolygon; ++slot) {
    for (std::uint8_t corner = 0; corner < 3; ++corner) {
      selection.vertices.Add({static_cast<std::int16_t>(slot), corner});
    }
  }
  for (int slot = before.scenery + 1; slot <= document.lastScenery; ++slot) {
    selection.sceneries.Add(static_cast<std::uint8_t>(slot));
  }
  for (int slot = before.collider + 1; slot <= document.lastCollider; ++slot) {
    selection.colliders.Add(static_cast<std::uint8_t>(slot));
  }
}

/// False when not all records fitted.
template <typename Table, typename Records>
bool Append(Table& table, std::int16_t& last, const Records& records) {
  for (const auto& record : records) {
    if (last >= static_cast<int>(table.size()) - 1) return false;
    table[static_cast<std::size_t>(++last)] = record;
  }
  return true;
}

bool AppendPrefab(MapDocument& document, const Prefab& prefab) {
  std::int16_t lastNormals = document.lastPolygon;
  Append(document.normals, lastNormals, prefab.normals);
  const bool polygonsFit = Append(document.polygons, document.lastPolygon, prefab.polygons);
  const bool sceneriesFit = Append(document.sceneries, document.lastScenery, prefab.sceneries);
  const bool collidersFit = Append(document.colliders, document.lastCollider, prefab.colliders);
  return polygonsFit && sceneriesFit && collidersFit;
}

/// The prefab's records, or nothing with the reason in `problem`.
std::optional<Prefab> LoadPrefab(const Editing& editing, const std::string& path,
                                 std::string& problem) {
  const FileContents file = ReadFile(editing.ports.files, path, kPrefabReadLimit);
  if (file.status.failure == FileFailure::kMissing) {
    problem = "File '" + path + "' not found.";
    return std::nullopt;
  }
  if (!file.status.Ok()) {
    problem = "File '" + path + "' could not be read: " + file.status.reason;
    return std::nullopt;
  }
  if (!ReadPrefabHeader(file.bytes).isKnownVersion) {
    problem = "File '" + path + "' is not Vesmora " VESMORA_VERSION " prop file.";
    if (!editing.state.shiftDown) return std::nullopt;
  }
  std::optional<Prefab> prefab = ReadPrefab(file.bytes);
  if (!prefab && problem.empty()) {
    problem = "File '" + path + "' is damaged: it holds less than it promises.";
  }
  return prefab;
}

/// Moves the newest letter before the text so far: onto the line, and everything
/// to the left by the letter's width.
void SetLetter(const Editing& editing, const TableEnds& before) {
  EditingState& state = editing.state;
  if (state.selection.Empty()) return;
  const SelectionBox letter = BoundsOf(state.selection, state.document);
  MoveSelection(editing, -letter.left, -letter.top);
  MoveSelection(editing, 0, -(letter.bottom - letter.top) / 2);
  SelectAppended(state, before);
  MoveSelection(editing, -BoundsOf(state.selection, state.document).right, 0);
}

void LeaveSpace(const Editing& editing, const TableEnds& before) {
  SelectAppended(editing.state, before);
  if (!editing.state.selection.Empty()) MoveSelection(editing, -kSpaceWidth, 0);
}

}  // namespace

void ImportPrefab(const Editing& editing, const std::string& path, ImportManner manner) {
  EditingState& state = editing.state;
  ResetDragState(state.selection);
  state.gesture.End();
  ChangeTool(editing, ToolMode::kEdit);
  ClearSelection(state.selection, editing.ports.display);

  std::string problem;
  const std::optional<Prefab> prefab = LoadPrefab(editing, path, problem);
  if (!problem.empty() && manner == ImportManner::kPlaced) {
    editing.ports.dialogs.Show(
        {.text = problem, .title = "File error", .icon = MessageIcon::kNone});
  }
  if (!prefab) return;

  const TableEnds before = EndsOf(state.document);
  const bool allFitted = AppendPrefab(state.document, *prefab);
  SelectAppended(state, before);
  if (!allFitted && manner == ImportManner::kPlaced) {
    Refuse(editing, "Some of imported objects couldn't be pasted");
  }
  UpdateSelectionBox(state.selection, state.document);
  if (manner == ImportManner::kPlaced && !state.selection.Empty()) BeginPlacement(editing);
}

void PlaceAuthorText(const Editing& editing, const std::string& text,
                     const std::string& alphabetFolder) {
  EditingState& state = editing.state;
  EndConstruction(state);
  EndDrag(state.selection);
  state.gesture.End();
  const TableEnds before = EndsOf(state.document);
  for (const char character : LowerCaseSingleByte(text)) {
    const int code = static_cast<unsigned char>(character);
    const std::string letter = alphabetFolder + std::to_string(code) + ".pre";
    if (FileExists(editing.ports.files, letter)) {
      ImportPrefab(editing, letter, ImportManner::kQuiet);
      state.selection.moveSnapshotTaken = true;  // the whole text is one undo step
      SetLetter(editing, before);
    } else {
      state.selection.moveSnapshotTaken = true;
      LeaveSpace(editing, before);
    }
  }
  SelectAppended(state, before);
  UpdateSelectionBox(state.selection, state.document);
  state.selection.moveSnapshotTaken = !state.selection.Empty();
  if (!state.selection.Empty()) BeginPlacement(editing);
}

}  // namespace vesmora
