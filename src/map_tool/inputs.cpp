#include "map_tool/inputs.h"

#include <algorithm>
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

/// Empty, or why the folder cannot be read.
std::string FindMaps(FileCalls& files, const std::string& folder, int depth,
                     std::vector<Input>& inputs) {
  std::vector<std::string> names;
  if (files.ListFolder(folder, names) < 0) return folder + ": " + files.LastError();
  std::ranges::sort(names);
  for (const std::string& name : names) {
    const std::string path = InFolder(folder, name);
    FileInfo info;
    std::string target;
    if (files.Info(path, info) < 0) continue;
    if (info.kind == FileKind::kRegular && EndsIgnoringCase(name, ".pmp")) {
      inputs.push_back({path, path});
    } else if (info.kind == FileKind::kFolder && depth < kDeepest &&
               files.ReadLink(path, target) < 0) {
      const std::string problem = FindMaps(files, path, depth + 1, inputs);
      if (!problem.empty()) return problem;
    }
  }
  return {};
}

/// By device and number, so that links and other spellings of a path are seen through.
using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;

std::optional<FileIdentity> IdentityOf(FileCalls& files, const std::string& path) {
  FileInfo info;
  if (files.Info(path, info) < 0) return std::nullopt;
  return FileIdentity{info.device, info.number};
}

bool MakesMaps(Command command) {
  return command == Command::kCompile || command == Command::kResave ||
         command == Command::kPrefabImport;
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
  std::set<std::string> names;
  for (const std::string& target : targets) {
    if (target == kStandardStream) continue;
    if (!names.insert(target).second) return "two results would be " + target;
    const auto identity = IdentityOf(files, target);
    const bool isItself = !isFolder && MakesMaps(arguments.command) && inputs.size() == 1 &&
                          SameFile(files, target, inputs.front().path);
    if (identity && read.contains(*identity) && !isItself) {
      return target + " is one of the files that are read";
    }
  }
  return {};
}

}  // namespace

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
      list.inputs.push_back({path, arguments.name.empty() ? "-" : arguments.name});
    } else if (IsFolder(files, path)) {
      list.problem = FindMaps(files, path, 0, list.inputs);
      if (!list.problem.empty()) return {.inputs = {}, .problem = list.problem};
    } else {
      list.inputs.push_back({path, path});
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
  return plan;
}

}  // namespace vesmora::map_tool
