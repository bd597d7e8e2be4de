#include "map_tool/map_tool.h"

#include <memory>
#include <new>
#include <optional>

#include "map_tool/commands.h"
#include "map_tool/input_reading.h"
#include "map_tool/jobs.h"
#include "map_tool/map_reading.h"
#include "map_tool/picture.h"
#include "map_tool/poster.h"
#include "map_tool/report.h"
#include "map_tool/result_writer.h"
#include "map_tool/texture_store.h"

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

/// One run of the program, once it is known what to do.
class Run {
 public:
  Run(const Arguments& arguments, World& world)
      : arguments_(arguments),
        world_(world),
        colors_(world.wantsColors && world.console.OutputIsTerminal() && !arguments.json),
        textures_(world.files, arguments.picture.textures, world.gameFolder),
        results_(world, MakesMaps(arguments.command)) {}

  int Start() {
    if (const std::string problem = WhyRefused(); !problem.empty()) return Fail(problem);
    InputList list = FindInputs(world_.files, arguments_);
    if (!list.problem.empty()) return Fail(list.problem);
    inputs_ = std::move(list.inputs);
    errands_.resize(inputs_.size());
    if (arguments_.command == Command::kDiff) return RunDiff();
    if (arguments_.picture.poster) return RunPoster();
    if (const std::string problem = PlanResults(); !problem.empty()) return Fail(problem);
    return RunAll();
  }

 private:
  /// What is to be done with an input, beside what is the same for all of them.
  struct Errand {
    std::string target;
    double random = 0;
    const Texture* texture = nullptr;
  };

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

  /// Empty, or what is asked for that cannot be.
  std::string WhyRefused() {
    if (arguments_.json && arguments_.output == kStandardStream) {
      return "--json and a result on standard output exclude each other";
    }
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

  /// Where results go, and what they are made with. Empty, or in words why nothing can be made.
  std::string PlanResults() {
    if (!WritesFiles(arguments_.command)) return {};
    OutputPlan plan = PlanOutputs(world_.files, arguments_, inputs_, EndingOf(arguments_));
    if (!plan.problem.empty()) return plan.problem;
    for (std::size_t i = 0; i < errands_.size(); ++i) {
      errands_[i].target = std::move(plan.targets[i]);
    }
    if (arguments_.command != Command::kPrefabImport) return {};
    const std::string problem = ReadPrefabFile(world_.files, arguments_.prefab, prefab_);
    return problem.empty() ? problem : arguments_.prefab + ": " + problem;
  }

  Task TaskFor(std::size_t i, const FileContents& file) const {
    return {.arguments = arguments_,
            .input = inputs_[i],
            .file = file,
            .target = errands_[i].target,
            .colors = colors_,
            .random = errands_[i].random,
            .prefab = prefab_ ? &*prefab_ : nullptr,
            .texture = errands_[i].texture};
  }

  /// The steps that all commands have; those who use them add the others.
  JobSteps FirstSteps() {
    JobSteps steps;
    steps.read = [this](std::size_t i, FileContents& file) {
      ReadInput(world_.files, world_.console, inputs_[i], file);
      errands_[i].random = world_.random();
      if (arguments_.picture.filled) errands_[i].texture = textures_.Find(inputs_[i].path, file);
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
        Write(errands_[i].target, outcome.bytes, outcome);
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
    FileContents first;
    FileContents second;
    ReadInput(world_.files, world_.console, inputs_[0], first);
    ReadInput(world_.files, world_.console, inputs_[1], second);
    Outcome outcome = DiffTwo(TaskFor(0, first), inputs_[1], second, *bench);
    reporter.Take(outcome);
    return reporter.Finish();
  }

  /// Empty, or in words why the poster cannot be put where it should go.
  std::string WhyNoPosterThere() {
    const std::string& target = arguments_.output;
    if (IsFolder(world_.files, target)) return target + " is a folder, not a picture";
    for (const Input& input : inputs_) {
      if (SameFile(world_.files, target, input.path)) {
        return target + " is one of the files that are read";
      }
    }
    return WhyWrongEnding(arguments_);
  }

  int RunPoster() {
    if (const std::string problem = WhyNoPosterThere(); !problem.empty()) return Fail(problem);
    const PosterLayout layout = LayOutPoster(inputs_.size(), arguments_.picture);
    if (!layout.problem.empty()) return Fail(layout.problem);
    const std::string& target = arguments_.output;
    for (Errand& errand : errands_) errand.target = target;
    const bool isSvg = IsSvg(arguments_.picture, target);
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
    Outcome outcome;
    if (!Write(target, poster.TakeFile(), outcome)) reporter.Take(outcome);
    return reporter.Finish();
  }

  /// A failure takes the outcome's place.
  bool Write(const std::string& target, const std::vector<std::byte>& bytes, Outcome& outcome) {
    const FileStatus status = results_.Write(target, bytes);
    if (!status.Ok()) outcome = Trouble(target, "could not be written: " + status.reason);
    return status.Ok();
  }

  const Arguments& arguments_;
  World& world_;
  bool colors_;
  TextureStore textures_;
  ResultWriter results_;
  std::optional<Prefab> prefab_;
  std::vector<Input> inputs_;
  std::vector<Errand> errands_;  // of each input
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
