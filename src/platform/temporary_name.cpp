#include "platform/temporary_name.h"

#include <charconv>
#include <cstdint>

namespace vesmora {
namespace {

constexpr std::string_view kEnding = ".tmp";

/// The computer by a number: its name may hold anything, and is nobody's business.
std::string Beginning() {
  std::uint32_t sum = 2166136261U;
  for (const char c : ComputerName()) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
  return ".vesmora-" + std::to_string(sum) + "-";
}

}  // namespace

std::string TemporaryName(const std::string& unlikely) {
  return Beginning() + std::to_string(ProcessNumber()) + "-" + unlikely + std::string(kEnding);
}

bool IsLeftOver(std::string_view fileName) {
  const std::string beginning = Beginning();
  if (!fileName.starts_with(beginning) || !fileName.ends_with(kEnding)) return false;
  fileName.remove_prefix(beginning.size());
  long process = 0;
  const auto [end, error] =
      std::from_chars(fileName.data(), fileName.data() + fileName.size(), process);
  return error == std::errc() && *end == '-' && process > 0 && HasEnded(process);
}

}  // namespace vesmora
