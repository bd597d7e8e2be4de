// Which files are meant, and where their results go.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "map_tool/arguments.h"
#include "platform/files.h"

namespace vesmora::map_tool {

inline constexpr std::string_view kStandardStream = "-";

struct Input {
  std::string path;     // "-" for standard input
  std::string name;     // what it is called: as told for standard input, else its path
  std::string problem;  // in words, why it could not be looked at; else empty
};

struct InputList {
  std::vector<Input> inputs;
  std::string problem;  // in words; then there are no inputs
};

/// The files that are named, and the maps of the folders that are, of folders below them, too: of
/// each folder in the order of their names. Linked folders below are left out: they may lead in a
/// circle. What cannot be looked at in a folder, or a folder itself, is an input with a problem.
InputList FindInputs(FileCalls& files, const Arguments& arguments);

struct OutputPlan {
  std::vector<std::string> targets;  // of each input; "-" for standard output
  std::string problem;               // in words; then nothing may be written
};

/// `ending` is that of results which go to a folder, such as ".pmp". No input is written over but
/// in place, or when it is itself named as the only output and the result is a map again. An output
/// with the ending of something else is refused: it is named by mistake.
OutputPlan PlanOutputs(FileCalls& files, const Arguments& arguments,
                       const std::vector<Input>& inputs, const std::string& ending);

/// Whether the command's results are maps made of maps or of undo files.
bool MakesMaps(Command command);

/// Empty, or in words how the output's name has to end.
std::string WhyWrongEnding(const Arguments& arguments);

/// Whether the path is that of a folder.
bool IsFolder(FileCalls& files, const std::string& path);

}  // namespace vesmora::map_tool
