#include "app/prefab_commands.h"

#include <algorithm>

#include "app/file_messages.h"
#include "document/prefab_file.h"
#include "platform/single_byte_text.h"
#include "platform/text.h"
#include "tools/prefab_import.h"

namespace vesmora {
namespace {

constexpr std::size_t kExtensionLength = 4;  // with its dot
constexpr std::size_t kShortestAuthor = 2;
constexpr std::size_t kLongestAuthor = 19;

std::string Lines(int first, int second, int third) {
  return std::to_string(first) + "\n" + std::to_string(second) + "\n" + std::to_string(third);
}

/// The answer as the map stores it; a cancelled box answers nothing.
std::string AskForAuthor(Editor& editor) {
  const std::string answer = editor.ports.dialogs.AskText(
      {.title = "Map properties",
       .prompt = "Author's name\n\nYou are also allowed place this text to the map after you press "
                 "OK button.",
       .answer = ToUtf8(editor.document.author)});
  return std::string(TrimBlanks(FromUtf8(answer)));
}

}  // namespace

std::string PrefabFolder(const Ports& ports) {
  return AbsolutePath(ports.programFolder + "Prefab/");
}

std::vector<std::string> ListPrefabs(const Ports& ports) {
  std::vector<std::string> names = ListFiles(ports.files, PrefabFolder(ports)).names;
  std::erase_if(names, [](const std::string& name) { return !EndsIgnoringCase(name, ".pre"); });
  std::ranges::stable_sort(names, {}, [](const std::string& name) { return LowerCase(name); });
  return names;
}

ImportContents ShowPrefab(const Editor& editor, const std::string& fileName) {
  const auto left = [](const auto& table) { return table.kCapacity - table.Count(); };
  const MapDocument& document = editor.document;
  ImportContents contents;
  contents.lMaara =
      Lines(left(document.polygons), left(document.sceneries), left(document.colliders));
  contents.lMaara2 = Lines(0, 0, 0);
  if (fileName.empty()) return contents;
  contents.lName = fileName.substr(0, fileName.size() - kExtensionLength);
  const FileContents file =
      ReadFile(editor.ports.files, PrefabFolder(editor.ports) + fileName, kPrefabReadLimit);
  const PrefabHeader header = ReadPrefabHeader(file.bytes);
  contents.canImport = header.isKnownVersion;
  if (header.isKnownVersion) {
    contents.lAuthor = ToUtf8(header.author);
    contents.lMaara2 = Lines(header.polygonCount, header.sceneryCount, header.colliderCount);
  } else {
    contents.lMaara2 = "Err\nErr\nErr";
  }
  if (const auto prefab = ReadPrefab(file.bytes); prefab && header.isKnownVersion) {
    contents.map = std::make_unique<MapDocument>();
    AppendPrefab(*contents.map, *prefab);
  }
  return contents;
}

void MenuExport(Editor& editor) {
  const std::string path = editor.ports.dialogs.ChooseFileToSave(
      {.title = "Export",
       .directory = PrefabFolder(editor.ports),
       .fileName = "",
       .filter = {.description = "Vesmora Prefab (*.pre)", .pattern = "*.pre"}});
  if (path.empty()) return;
  const auto bytes = WithoutTriangle(editor, [&] { return WritePrefab(editor.document); });
  const FileStatus status = WriteFileDurably(editor.ports.files, path, bytes);
  TellSaveStatus(editor, path, status);
  if (status.Ok()) editor.note = "Exported " + editor.ports.timeOfDay();
}

void MenuImport(Editor& editor) {
  const std::string path = editor.ports.window.ShowImport();
  if (path.empty()) return;
  TakeUndoSnapshot(editor, "Import");
  ImportPrefab(editor, path, ImportManner::kPlaced);
  RefreshAll(editor);
}

void CBauthor_Click(Editor& editor) {
  editor.note.clear();
  TakeUndoSnapshot(editor, "Author");
  std::string& author = editor.document.author;
  const std::string answer = AskForAuthor(editor);
  if (answer.size() >= kShortestAuthor) {
    author = answer.substr(0, kLongestAuthor);
    // Escape must not take the name back along with what the mouse was in the middle of.
    editor.activity.Finish(editor);
  } else if (author.empty()) {
    author = "Unknow";
  }
  if (author != "New" && author != "Unknow") {
    PlaceAuthorText(editor, author, editor.ports.programFolder + "Alphabet/");
  }
  RefreshAll(editor);
}

}  // namespace vesmora
