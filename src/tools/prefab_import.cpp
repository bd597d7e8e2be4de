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

/// What is wrong with a file whose records cannot be read.
std::string DamageOf(const PrefabHeader& header) {
  if (HasPossibleCounts(header)) return "is damaged: it holds less than it promises.";
  return "is damaged: it names " + std::to_string(header.polygonCount) + " polygons, " +
         std::to_string(header.sceneryCount) + " sceneries and " +
         std::to_string(header.colliderCount) + " colliders.";
}

/// The prefab's records, or nothing.
std::optional<Prefab> LoadPrefab(const Editing& editing, const std::string& path,
                                 ImportManner manner) {
  const auto tell = [&](const std::string& problem) {
    if (manner == ImportManner::kQuiet) return;
    editing.ports.dialogs.Show({.text = "File '" + path + "' " + problem,
                                .title = "File error",
                                .icon = MessageIcon::kNone});
  };
  const FileContents file = ReadFile(editing.ports.files, path, kPrefabReadLimit);
  if (!file.status.Ok()) {
    const bool isMissing = file.status.failure == FileFailure::kMissing;
    tell(isMissing ? "not found." : "could not be read: " + file.status.reason);
    return std::nullopt;
  }
  const PrefabHeader header = ReadPrefabHeader(file.bytes);
  if (!header.isKnownVersion) {
    tell("is not Vesmora " VESMORA_VERSION " prop file.");
    if (!editing.shiftDown) return std::nullopt;
  }
  std::optional<Prefab> prefab = ReadPrefab(file.bytes);
  if (!prefab) tell(DamageOf(header));
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
  const bool isPlaced = manner == ImportManner::kPlaced;
  ChangeTool(editing, ToolMode::kEdit);
  ClearSelection(editing);
  const std::optional<Prefab> prefab = LoadPrefab(editing, path, manner);
  if (!prefab) return;

  const TableCounts before = CountsOf(editing.document);
  const bool allFitted = AppendPrefab(editing.document, *prefab);
  SelectAppended(editing, before);
  if (!allFitted && isPlaced) Refuse(editing, "Some of imported objects couldn't be pasted");
  UpdateSelectionBox(editing.selection, editing.document);
  if (isPlaced && !editing.selection.Empty()) BeginPlacement(editing);
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
