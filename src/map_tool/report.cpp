#include "map_tool/report.h"

#include <algorithm>

#include "platform/utf8.h"

namespace vesmora::map_tool {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(700);  // before work counts as long
constexpr auto kStep = std::chrono::milliseconds(100);
constexpr std::string_view kEraseLine = "\r\x1b[K";

std::string_view CodeOf(Tint tint) {
  switch (tint) {
    case Tint::kError:
      return "\x1b[1;31m";
    case Tint::kHint:
      return "\x1b[33m";
    case Tint::kName:
      return "\x1b[1m";
    case Tint::kFaint:
      break;
  }
  return "\x1b[2m";
}

}  // namespace

std::string Tinted(std::string_view text, Tint tint, bool wanted) {
  if (!wanted) return std::string(text);
  return std::string(CodeOf(tint)).append(text).append("\x1b[0m");
}

std::string Printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::string_view before = text;
    const std::uint32_t character = TakeUtf8Character(text);
    const bool isControl = character < ' ' || (character >= 0x7F && character < 0xA0);
    result += isControl ? "?" : before.substr(0, before.size() - text.size());
  }
  return result;
}

std::string NameOf(Command command) {
  switch (command) {
    case Command::kInfo:
      return "info";
    case Command::kCheck:
      return "check";
    case Command::kCompile:
      return "compile";
    case Command::kResave:
      return "resave";
    case Command::kRender:
      return "render";
    case Command::kDiff:
      return "diff";
    case Command::kPrefabExport:
      return "prefab export";
    case Command::kPrefabImport:
      return "prefab import";
    case Command::kRescue:
      break;
  }
  return "rescue";
}

Json JsonStart(Command command) {
  Json json = Json::object();
  json["format"] = kJsonFormat;
  json["version"] = VESMORA_VERSION;
  json["command"] = NameOf(command);
  return json;
}

bool WriteOrTell(Console& console, std::string_view text) {
  const FileStatus status = console.Write(std::as_bytes(std::span(text)));
  if (!status.Ok()) {
    console.Tell("vesmora-map: standard output could not be written: " + status.reason + "\n");
  }
  return status.Ok();
}

bool WriteJsonOrTell(Console& console, const Json& json) {
  return WriteOrTell(console, json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}

Reporter::Reporter(const Arguments& arguments, Console& console, std::size_t total)
    : arguments_(arguments), console_(console), total_(total) {}

void Reporter::Take(Outcome& outcome) {
  ++taken_;
  status_ = std::max(status_, outcome.status);
  if (!outcome.told.empty()) {
    HideProgress();
    console_.Tell(outcome.told);
  }
  if (arguments_.json) {
    results_.push_back(std::move(outcome.json));
  } else if (!outcome.text.empty()) {
    HideProgress();
    if (!isOutputBroken_) isOutputBroken_ = !WriteOrTell(console_, outcome.text);
    if (isOutputBroken_) status_ = kTrouble;
  }
  ShowProgress();
}

int Reporter::Finish() {
  HideProgress();
  if (arguments_.json) {
    Json all = JsonStart(arguments_.command);
    all["results"] = std::move(results_);
    if (!WriteJsonOrTell(console_, all)) status_ = kTrouble;
  }
  return status_;
}

void Reporter::ShowProgress() {
  const auto now = std::chrono::steady_clock::now();
  if (taken_ == total_ || now - start_ < kPatience || (isShown_ && now - shown_ < kStep) ||
      !console_.ErrorIsTerminal()) {
    return;
  }
  console_.Tell(std::string(kEraseLine) + std::to_string(taken_) + " of " + std::to_string(total_) +
                " maps");
  shown_ = now;
  isShown_ = true;
}

void Reporter::HideProgress() {
  if (isShown_) console_.Tell(kEraseLine);
  isShown_ = false;
}

}  // namespace vesmora::map_tool
