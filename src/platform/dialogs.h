// Everything the program tells or asks people goes through this port. The window implements it with
// real boxes, tests with scripted answers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vesmora {

enum class MessageIcon { kNone, kCritical, kExclamation, kQuestion, kInformation };

struct Message {
  std::string text;   // UTF-8, lines joined with a single line feed
  std::string title;  // empty: the application's default title
  MessageIcon icon = MessageIcon::kNone;

  bool operator==(const Message&) const = default;
};

struct FileFilter {
  std::string description;  // "Soldat Map (*.pmp)"
  std::string pattern;      // "*.PMP"
};

struct FileRequest {
  std::string title;
  std::string directory;  // where the dialog starts; empty: wherever it was
  std::string fileName;   // preset name
  FileFilter filter;
};

struct TextRequest {
  std::string title;
  std::string prompt;
  std::string answer;  // preset
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A modal box with an OK button only.
  virtual void Show(const Message& message) = 0;

  /// A modal OK/Cancel box; false when it was cancelled.
  virtual bool Ask(const Message& message) = 0;

  /// An existing file; empty when cancelled.
  virtual std::string ChooseFileToOpen(const FileRequest& request) = 0;

  /// A file in an existing folder, asking before an existing one is replaced;
  /// empty when cancelled.
  virtual std::string ChooseFileToSave(const FileRequest& request) = 0;

  /// A line of text; empty when cancelled.
  virtual std::string AskText(const TextRequest& request) = 0;

  /// A colour as a number with red in its lowest byte; none when cancelled.
  virtual std::optional<std::int32_t> ChooseColor(std::int32_t initial) = 0;
};

}  // namespace vesmora
