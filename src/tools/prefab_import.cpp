#include "tools/prefab_import.h"

#include <algorithm>

#include "document/prefab_file.h"
#include "platform/files.h"
#include "platform/text.h"
#include "tools/move_selection.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

constexpr float kSpaceWidth = 20;  // world units

/// What the tables held, to tell later what has been appended.
struct TableCounts {
  int polygons;
  int sceneries;
  int colliders;
};

TableCounts CountsOf(const MapDocument& document) {
  return {document.polygons.Count(), document.sceneries.Count(), document.colliders.Count()};
}

void SelectAppended(Editing& editing, const TableCounts& before) {
  const MapDocument& document = editing.document;
  Selection& selection = editing.selection;
  ClearLists(selection);
  ListFrom(before.polygons, document.polygons, selection.vertices);
  ListFrom(before.sceneries, document.sceneries, selection.sceneries);
  ListFrom(before.colliders, document.colliders, selection.colliders);
}

/// False when not all records fitted.
bool AppendPrefab(MapDocument& document, const Prefab& prefab) {
  const auto append = [](auto& table, const auto& records) {
    return std::ranges::all_of(records, [&](const auto& record) { return table.Append(record); });
  };
  const bool polygonsFit = append(document.polygons, prefab.polygons);
  const bool sceneriesFit = append(document.sceneries, prefab.sceneries);
  const bool collidersFit = append(document.colliders, prefab.colliders);
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
    if (!editing.shiftDown) return std::nullopt;
  }
  std::optional<Prefab> prefab = ReadPrefab(file.bytes);
  if (!prefab && problem.empty()) {
    problem = "File '" + path + "' is damaged: it holds less than it promises.";
  }
  return prefab;
}

/// Letters are set where they belong; placing the text is what is undone.
void ShiftLetters(Editing& editing, WorldPoint offset) {
  ShiftSelected(editing.document, editing.selection, offset, editing.tool.next.noTextureCorrection);
}

/// Moves the newest letter before the text so far: onto the line, and everything
/// to the left by the letter's width.
void SetLetter(Editing& editing, const TableCounts& before) {
  if (editing.selection.Empty()) return;
  const SelectionBox letter = BoundsOf(editing.selection, editing.document);
  ShiftLetters(editing, {-letter.left, -letter.top});
  ShiftLetters(editing, {0, -(letter.bottom - letter.top) / 2});
  SelectAppended(editing, before);
  ShiftLetters(editing, {-BoundsOf(editing.selection, editing.document).right, 0});
}

}  // namespace

void ImportPrefab(Editing& editing, const std::string& path, ImportManner manner) {
  ChangeTool(editing, ToolMode::kEdit);
  ClearSelection(editing);

  std::string problem;
  const std::optional<Prefab> prefab = LoadPrefab(editing, path, problem);
  if (!problem.empty() && manner == ImportManner::kPlaced) {
    editing.ports.dialogs.Show(
        {.text = problem, .title = "File error", .icon = MessageIcon::kNone});
  }
  if (!prefab) return;

  const TableCounts before = CountsOf(editing.document);
  const bool allFitted = AppendPrefab(editing.document, *prefab);
  SelectAppended(editing, before);
  if (!allFitted && manner == ImportManner::kPlaced) {
    Refuse(editing, "Some of imported objects couldn't be pasted");
  }
  UpdateSelectionBox(editing.selection, editing.document);
  if (manner == ImportManner::kPlaced && !editing.selection.Empty()) BeginPlacement(editing);
}

void PlaceAuthorText(Editing& editing, const std::string& text, const std::string& alphabetFolder) {
  editing.activity.Finish(editing);
  Selection& selection = editing.selection;
  const TableCounts before = CountsOf(editing.document);
  for (const char character : LowerCaseSingleByte(text)) {
    const int code = static_cast<unsigned char>(character);
    const std::string letter = alphabetFolder + std::to_string(code) + ".pre";
    if (FileExists(editing.ports.files, letter)) {
      ImportPrefab(editing, letter, ImportManner::kQuiet);
      SetLetter(editing, before);
    } else {
      SelectAppended(editing, before);
      ShiftLetters(editing, {-kSpaceWidth, 0});
    }
  }
  SelectAppended(editing, before);
  UpdateSelectionBox(selection, editing.document);
  selection.moveSnapshotTaken = !selection.Empty();  // the step "Author" is the one
  if (!selection.Empty()) BeginPlacement(editing);
}

}  // namespace vesmora
