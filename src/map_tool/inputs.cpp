#include "map_tool/inputs.h"

#include <algorithm>
#include <cerrno>
#include <set>
#include <utility>

#include "platform/text.h"

namespace vesmora::map_tool {
namespace {

constexpr int kDeepest = 64;  // folders in folders

std::string InFolder(const std::string& folder, const std::string& name) {
  const bool hasSlash = folder.ends_with('/') || folder.ends_with('\\');
  return folder + (hasSlash ? "" : "/") + name;
}

void FindMaps(FileCalls& files, const std::string& folder, int depth, std::vector<Input>& inputs) {
  std::vector<std::string> names;
  if (files.ListFolder(folder, names) < 0) {
    inputs.push_back({.path = folder, .name = folder, .problem = files.LastError()});
    return;
  }
  std::ranges::sort(names);
  for (const std::string& name : names) {
    const std::string path = InFolder(folder, name);
    FileInfo info;
    std::string target;
    if (const int result = files.Info(path, info); result < 0) {
      // A link to nothing may be anything; a map with this name is missed.
      if (result == -ENOENT && !EndsIgnoringCase(name, ".pmp")) continue;
      inputs.push_back({.path = path, .name = path, .problem = files.LastError()});
    } else if (info.kind == FileKind::kRegular && EndsIgnoringCase(name, ".pmp")) {
      inputs.push_back({.path = path, .name = path, .problem = {}});
    } else if (info.kind == FileKind::kFolder && depth < kDeepest &&
               files.ReadLink(path, target) < 0) {
      FindMaps(files, path, depth + 1, inputs);
    }
  }
}

/// By device and number, so that links and other spellings of a path are seen through.
using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;

std::optional<FileIdentity> IdentityOf(FileCalls& files, const std::string& path) {
  FileInfo info;
  if (files.Info(path, info) < 0) return std::nullopt;
  return FileIdentity{info.device, info.number};
}

/// The name of a result in a folder.
std::string ResultName(const Input& input, const std::string& ending) {
  std::string name(FileNamePart(input.name));
  if (EndsIgnoringCase(name, ending)) return name;
  const std::size_t dot = name.rfind('.');
  return (dot == std::string::npos || dot == 0 ? name : name.substr(0, dot)) + ending;
}

/// Empty, or in words what would be lost.
std::string WhatIsLost(FileCalls& files, const Arguments& arguments,
                       const std::vector<Input>& inputs, const std::vector<std::string>& targets,
                       bool isFolder) {
  std::set<FileIdentity> read;
  std::vector<std::string> paths;
  paths.reserve(inputs.size() + 1);
  for (const Input& input : inputs) paths.push_back(input.path);
  if (!arguments.prefab.empty()) paths.push_back(arguments.prefab);
  for (const std::string& path : paths) {
    if (const auto identity = IdentityOf(files, path)) read.insert(*identity);
  }
  const bool takesAndMakesMaps =
      MakesMaps(arguments.command) && arguments.command != Command::kRescue;
  std::set<std::string> names;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const std::string& target = targets[i];
    if (target == kStandardStream || !inputs[i].problem.empty()) continue;
    if (!names.insert(target).second) return "two results would be " + target;
    const auto identity = IdentityOf(files, target);
    const bool isItself = !isFolder && takesAndMakesMaps && inputs.size() == 1 &&
                          SameFile(files, target, inputs.front().path);
    if (identity && read.contains(*identity) && !isItself) {
      return target + " is one of the files that are read";
    }
  }
  return {};
}

/// The endings that suit what the command writes.
std::vector<std::string> SuitableEndings(const Arguments& arguments) {
  if (arguments.command == Command::kPrefabExport) return {".pre"};
  if (arguments.command != Command::kRender) return {".pmp"};
  if (arguments.picture.svg) return {".svg"};
  return {".png", ".svg"};
}

}  // namespace

bool MakesMaps(Command command) {
  return command == Command::kCompile || command == Command::kResave ||
         command == Command::kPrefabImport || command == Command::kRescue;
}

std::string WhyWrongEnding(const Arguments& arguments) {
  const std::string_view name = FileNamePart(arguments.output);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0) return {};
  const std::vector<std::string> endings = SuitableEndings(arguments);
  const auto suits = [&](const std::string& ending) { return EndsIgnoringCase(name, ending); };
  if (std::ranges::any_of(endings, suits)) return {};
  return arguments.output + " must end in " + endings.front() +
         (endings.size() > 1 ? " or " + endings.back() : "");
}

bool IsFolder(FileCalls& files, const std::string& path) {
  FileInfo info;
  return files.Info(path, info) >= 0 && info.kind == FileKind::kFolder;
}

InputList FindInputs(FileCalls& files, const Arguments& arguments) {
  InputList list;
  const auto isStandard = [](const std::string& path) { return path == kStandardStream; };
  if (std::ranges::count_if(arguments.inputs, isStandard) > 1) {
    return {.inputs = {}, .problem = "standard input can be read only once"};
  }
  for (const std::string& path : arguments.inputs) {
    if (isStandard(path)) {
      list.inputs.push_back(
          {.path = path, .name = arguments.name.empty() ? "-" : arguments.name, .problem = {}});
    } else if (IsFolder(files, path)) {
      FindMaps(files, path, 0, list.inputs);
    } else {
      list.inputs.push_back({.path = path, .name = path, .problem = {}});
    }
  }
  if (list.inputs.empty()) list.problem = "there are no maps";
  return list;
}

OutputPlan PlanOutputs(FileCalls& files, const Arguments& arguments,
                       const std::vector<Input>& inputs, const std::string& ending) {
  OutputPlan plan;
  if (arguments.inPlace) {
    for (const Input& input : inputs) plan.targets.push_back(input.path);
    if (std::ranges::count(plan.targets, kStandardStream) > 0) {
      return {.targets = {}, .problem = "standard input cannot be replaced in place"};
    }
    return plan;
  }
  if (arguments.output.empty()) {
    return {.targets = {}, .problem = "say where to write: -o OUT, or --in-place"};
  }
  const bool isFolder = IsFolder(files, arguments.output);
  if (!isFolder && inputs.size() > 1) {
    return {.targets = {},
            .problem = arguments.output + " must be a folder that is there, for several results"};
  }
  for (const Input& input : inputs) {
    plan.targets.push_back(isFolder ? InFolder(arguments.output, ResultName(input, ending))
                                    : arguments.output);
  }
  plan.problem = WhatIsLost(files, arguments, inputs, plan.targets, isFolder);
  if (plan.problem.empty() && !isFolder) plan.problem = WhyWrongEnding(arguments);
  return plan;
}

}  // namespace vesmora::map_tool
