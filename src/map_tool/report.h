// How results are told: in lines for people, coloured on a terminal, or as JSON.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "map_tool/arguments.h"
#include "map_tool/outcome.h"
#include "platform/console.h"

namespace vesmora::map_tool {

/// The version of the JSON that is written: it changes only when something is taken away or comes
/// to mean something else.
inline constexpr int kJsonFormat = 1;

enum class Tint { kError, kHint, kName, kFaint };

/// The text as a terminal shows it in a colour, when `wanted`.
std::string Tinted(std::string_view text, Tint tint, bool wanted);

/// Text from files and names of files, fit for a terminal: control characters become '?'. Bytes
/// that are no UTF-8 stay, as names of files may have them.
std::string Printable(std::string_view text);

/// The command as it is called, such as "prefab export".
std::string NameOf(Command command);

/// What all that is written as JSON begins with.
Json JsonStart(Command command);

/// Writes to standard output. False, and told with the system's reason, when that fails.
bool WriteOrTell(Console& console, std::string_view text);
bool WriteJsonOrTell(Console& console, const Json& json);

/// Hands results on as they come and counts them on a terminal when they take long.
class Reporter {
 public:
  /// `total` results will come. What is told goes to standard error when results take standard
  /// output.
  Reporter(const Arguments& arguments, Console& console, std::size_t total);

  void Take(Outcome& outcome);
  /// Writes what is told at the end; the status to end with.
  int Finish();

 private:
  void ShowProgress();
  void HideProgress();

  const Arguments& arguments_;
  Console& console_;
  std::size_t total_;
  std::size_t taken_ = 0;
  int status_ = kSuccess;
  bool isOutputBroken_ = false;
  Json results_ = Json::array();
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point shown_ = start_;
  bool isShown_ = false;
};

}  // namespace vesmora::map_tool
