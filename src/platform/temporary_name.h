// Names of the temporary files that a save writes. They tell whose they are, so that those of
// killed programs can be told from those that are being written.
#pragma once

#include <string>
#include <string_view>

namespace vesmora {

/// ".vesmora-<computer>-<process>-<unlikely>.tmp"
std::string TemporaryName(const std::string& unlikely);

/// Whether a file of this name is certainly nobody's: written on this computer by a process that
/// has ended.
bool IsLeftOver(std::string_view fileName);

/// By which this computer is known, as far as processes are numbered together.
std::string ComputerName();
long ProcessNumber();
/// True when there certainly is no such process.
bool HasEnded(long process);

}  // namespace vesmora
