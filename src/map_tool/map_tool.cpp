#include "map_tool/map_tool.h"

#include <memory>
#include <new>
#include <optional>

#include "document/map_backup.h"
#include "map_tool/commands.h"
#include "map_tool/jobs.h"
#include "map_tool/map_reading.h"
#include "map_tool/poster.h"
#include "map_tool/report.h"
#include "map_tool/texture_store.h"
#include "platform/text.h"

namespace vesmora::map_tool {
namespace {

std::string EndingOf(const Arguments& arguments) {
  switch (arguments.command) {
    case Command::kRender:
      return arguments.picture.svg ? ".svg" : ".png";
    case Command::kPrefabExport:
      return ".pre";
    default:
      return ".pmp";
  }
}

constexpr std::string_view kNoMemory = "not enough memory";

bool WritesFiles(Command command) {
  return command != Command::kInfo && command != Command::kCheck && command != Command::kDiff;
}

Outcome RunCommand(const Task& task, Workbench& bench) {
  switch (task.arguments.command) {
    case Command::kInfo:
      return TellInfo(task, bench);
    case Command::kCheck:
      return CheckOne(task, bench);
    case Command::kRender:
      return RenderOne(task, bench);
    case Command::kPrefabExport:
      return ExportPrefab(task, bench);
    default:
      return MakeMap(task, bench);
  }
}

/// Reads a file of the size of the one before into the same memory: fresh memory is zeroed first,
/// which takes half as long as reading a map. False when that cannot be done, for whatever reason.
bool ReadSameSize(FileCalls& files, const std::string& path, FileContents& file) {
  if (file.bytes.empty()) return false;
  const int handle = files.OpenToRead(path);
  if (handle < 0) return false;
  FileInfo info;
  const auto size = static_cast<std::int64_t>(file.bytes.size());
  const bool isRead = files.InfoOfHandle(handle, info) >= 0 && info.kind == FileKind::kRegular &&
                      info.size == file.bytes.size() && files.Read(handle, file.bytes) == size;
  files.Close(handle);
  if (isRead) file = {.status = {}, .bytes = std::move(file.bytes), .size = info.size};
  return isRead;
}

/// One run of the program, once it is known what to do.
class Run {
 public:
  Run(const Arguments& arguments, World& world)
      : arguments_(arguments),
        world_(world),
        colors_(world.console.OutputIsTerminal() && !arguments.json),
        textures_(world.files, arguments.picture.textures, world.gameFolder) {}

  int Start() {
    if (const std::string problem = WhyRefused(); !problem.empty()) return Fail(problem);
    InputList list = FindInputs(world_.files, arguments_);
    if (!list.problem.empty()) return Fail(list.problem);
    inputs_ = std::move(list.inputs);
    if (arguments_.command == Command::kDiff) return RunDiff();
    if (arguments_.picture.poster) return RunPoster();
    if (WritesFiles(arguments_.command)) {
      OutputPlan plan = PlanOutputs(world_.files, arguments_, inputs_, EndingOf(arguments_));
      if (!plan.problem.empty()) return Fail(plan.problem);
      targets_ = std::move(plan.targets);
      const bool isMixed = arguments_.json && targets_.front() == kStandardStream;
      if (isMixed) return Fail("--json and a result on standard output exclude each other");
    } else {
      targets_.resize(inputs_.size());
    }
    if (arguments_.command == Command::kPrefabImport) {
      if (const std::string problem = ReadThePrefab(); !problem.empty()) {
        return Fail(arguments_.prefab + ": " + problem);
      }
    }
    return RunAll();
  }

 private:
  int Fail(const std::string& problem) {
    world_.console.Tell("vesmora-map: " + Printable(problem) + "\n");
    // A result's place takes nothing else.
    if (arguments_.json && arguments_.output != kStandardStream) {
      Json json = JsonStart(arguments_.command);
      json["error"] = problem;
      WriteJsonOrTell(world_.console, json);
    }
    return kTrouble;
  }

  /// Empty, or which folder is there or missing against what is needed.
  std::string WhyRefused() {
    const std::string& textures = arguments_.picture.textures;
    if (!textures.empty() && !IsFolder(world_.files, textures)) {
      return textures + " is no folder with textures";
    }
    if (arguments_.command != Command::kRescue) return {};
    for (const std::string& path : arguments_.inputs) {
      if (IsFolder(world_.files, path)) return path + " is a folder, not an undo file";
    }
    return {};
  }

  FileContents Read(const Input& input) {
    if (!input.problem.empty()) {
      return {.status = {FileFailure::kError, input.problem}, .bytes = {}};
    }
    return input.path == kStandardStream ? world_.console.ReadInput(kMapReadLimit)
                                         : ReadFile(world_.files, input.path, kMapReadLimit);
  }

  std::string ReadThePrefab() {
    const FileContents file = ReadFile(world_.files, arguments_.prefab, kPrefabReadLimit);
    if (file.status.failure == FileFailure::kMissing) return "not found";
    if (!file.status.Ok()) return "could not be read: " + file.status.reason;
    if (!ReadPrefabHeader(file.bytes).isKnownVersion) return "is no prefab of this version";
    prefab_ = ReadPrefab(file.bytes);
    return prefab_ ? std::string() : "is damaged";
  }

  Task TaskFor(std::size_t i, const FileContents& file) const {
    return {.arguments = arguments_,
            .input = inputs_[i],
            .file = file,
            .target = targets_[i],
            .colors = colors_,
            .random = randoms_[i],
            .prefab = prefab_ ? &*prefab_ : nullptr,
            .texture = found_[i]};
  }

  /// The steps that all commands have; those who use them add the others.
  JobSteps FirstSteps() {
    randoms_.resize(inputs_.size());
    found_.resize(inputs_.size());
    JobSteps steps;
    steps.read = [this](std::size_t i, FileContents& file) {
      if (inputs_[i].path == kStandardStream ||
          !ReadSameSize(world_.files, inputs_[i].path, file)) {
        file = Read(inputs_[i]);
      }
      randoms_[i] = world_.random();
      if (arguments_.picture.filled) found_[i] = textures_.Find(inputs_[i].path, file);
    };
    steps.lackMemory = [this](std::size_t i) {
      return Trouble(inputs_[i].name, std::string(kNoMemory));
    };
    return steps;
  }

  int RunAll() {
    Reporter reporter(arguments_, world_.console, inputs_.size());
    JobSteps steps = FirstSteps();
    steps.work = [this](std::size_t i, const FileContents& file, Workbench& bench) {
      return RunCommand(TaskFor(i, file), bench);
    };
    steps.finish = [&](std::size_t i, Outcome& outcome) {
      if (WritesFiles(arguments_.command) && outcome.status != kTrouble) {
        const FileStatus status = WriteResult(targets_[i], outcome.bytes);
        if (!status.Ok()) {
          outcome = Trouble(targets_[i], "could not be written: " + status.reason);
        }
      }
      reporter.Take(outcome);
    };
    // Reading is nearly all there is to do for it: other threads would only be waited for.
    const int jobs = arguments_.command == Command::kInfo ? 1 : arguments_.jobs;
    RunJobs(jobs, inputs_.size(), steps);
    return reporter.Finish();
  }

  int RunDiff() {
    if (inputs_.size() != 2) return Fail("diff compares two maps, not folders");
    Reporter reporter(arguments_, world_.console, 1);
    const auto bench = std::make_unique<Workbench>();
    targets_.resize(inputs_.size());
    randoms_.resize(inputs_.size());
    found_.resize(inputs_.size());
    const FileContents first = Read(inputs_[0]);
    const FileContents second = Read(inputs_[1]);
    Outcome outcome = DiffTwo(TaskFor(0, first), inputs_[1], second, *bench);
    reporter.Take(outcome);
    return reporter.Finish();
  }

  int RunPoster() {
    const std::string& target = arguments_.output;
    if (IsFolder(world_.files, target)) return Fail(target + " is a folder, not a picture");
    const PosterLayout layout = LayOutPoster(inputs_.size(), arguments_.picture);
    if (!layout.problem.empty()) return Fail(layout.problem);
    const bool isSvg = arguments_.picture.svg || EndsIgnoringCase(target, ".svg");
    targets_.assign(inputs_.size(), target);
    for (const Input& input : inputs_) {
      if (SameFile(world_.files, target, input.path)) {
        return Fail(target + " is one of the files that are read");
      }
    }
    if (const std::string problem = WhyWrongEnding(arguments_); !problem.empty()) {
      return Fail(problem);
    }
    Reporter reporter(arguments_, world_.console, inputs_.size());
    Poster poster(layout, isSvg);
    JobSteps steps = FirstSteps();
    steps.work = [&](std::size_t i, const FileContents& file, Workbench& bench) {
      return DrawTile(TaskFor(i, file), layout, isSvg, bench);
    };
    std::size_t drawn = 0;
    steps.finish = [&](std::size_t i, Outcome& outcome) {
      if (outcome.status != kTrouble) ++drawn;
      poster.Put(i, inputs_[i].name, outcome.bytes);
      reporter.Take(outcome);
    };
    RunJobs(arguments_.jobs, inputs_.size(), steps);
    if (drawn == 0) return reporter.Finish();
    const FileStatus status = WriteResult(target, poster.TakeFile());
    if (!status.Ok()) {
      Outcome outcome = Trouble(target, "could not be written: " + status.reason);
      reporter.Take(outcome);
    }
    return reporter.Finish();
  }

  /// A map that another one replaces is kept as the backup.
  FileStatus WriteResult(const std::string& target, const std::vector<std::byte>& bytes) {
    if (bytes.empty()) return {FileFailure::kError, "there is nothing to write"};
    if (target == kStandardStream) return world_.console.Write(bytes);
    if (MakesMaps(arguments_.command) && FileExists(world_.files, target)) {
      if (!tempFolder_) tempFolder_ = world_.tempFolder();
      const FileStatus status = BackUpMap(world_.files, *tempFolder_, target);
      if (!status.Ok()) return status;
    }
    return WriteFileDurably(world_.files, target, bytes);
  }

  const Arguments& arguments_;
  World& world_;
  bool colors_;
  TextureStore textures_;
  std::optional<Prefab> prefab_;
  std::optional<std::string> tempFolder_;
  std::vector<Input> inputs_;
  // Of each input.
  std::vector<std::string> targets_;
  std::vector<double> randoms_;
  std::vector<const Texture*> found_;
};

}  // namespace

int RunMapTool(const std::vector<std::string>& words, World& world) {
  const Parsing parsing = ParseArguments(words, world.processors);
  if (!parsing.error.empty()) world.console.Tell(parsing.error);
  if (!parsing.output.empty()) {
    if (!WriteOrTell(world.console, parsing.output)) return kTrouble;
  }
  if (!parsing.arguments) return parsing.status;
  try {
    return Run(*parsing.arguments, world).Start();
  } catch (const std::bad_alloc&) {
    world.console.Tell("vesmora-map: ");
    world.console.Tell(kNoMemory);
    world.console.Tell("\n");
    return kTrouble;
  }
}

}  // namespace vesmora::map_tool
