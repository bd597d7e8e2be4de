#include "document/session_note.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/text.h"

namespace vesmora {
namespace {

const std::string kName = "VesmoraUndo.map";     // goes with the files of the steps
constexpr std::size_t kLongestNote = 1U << 16U;  // bytes

/// Fields end with NUL, which no path holds, and behind the last one may lie the rest of an older,
/// longer note.
std::string TextOf(const SessionNote& note) {
  std::string text;
  for (const std::string& field :
       {std::to_string(note.sequence), std::to_string(note.savedMap), note.file, note.mapPath}) {
    text.append(field).push_back('\0');
  }
  return text;
}

template <typename Number>
void ReadNumber(std::string_view field, Number& number) {
  std::from_chars(field.data(), field.data() + field.size(), number);
}

}  // namespace

void NoteOpenMap(const EditedMap& map, FileCalls& files, const std::string& file) {
  const UndoFolder& folder = map.journal.folder;
  if (folder.path.empty() || !IsStillHeld(files, folder)) return;
  const std::string text =
      TextOf({.sequence = map.journal.sequence,
              .savedMap = map.savedMap,
              .file = file.substr(std::min(file.size(), folder.path.size())),
              .mapPath = map.document.fileName.empty() ? map.rescuedPath : map.document.fileName});
  static_cast<void>(WriteFileInPlace(files, folder.path + kName, std::as_bytes(std::span(text))));
}

SessionNote ReadSessionNote(FileCalls& files, const std::string& folder) {
  const FileContents contents = ReadFile(files, folder + kName, kLongestNote);
  std::string_view text(reinterpret_cast<const char*>(contents.bytes.data()),
                        contents.bytes.size());
  SessionNote note;
  ReadNumber(TakeUpTo(text, '\0'), note.sequence);
  ReadNumber(TakeUpTo(text, '\0'), note.savedMap);
  note.file = TakeUpTo(text, '\0');
  note.mapPath = TakeUpTo(text, '\0');
  return note;
}

bool IsSessionNote(const std::string& name) { return name == kName; }

}  // namespace vesmora
