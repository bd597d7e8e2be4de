#include "map_tool/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

#include "map_tool/exit_status.h"

namespace vesmora::map_tool {
namespace {

constexpr int kLargestSide = 16384;  // pixels of a picture
constexpr int kMostJobs = 256;

constexpr const char* kEndsAfterWriting =
    "Ends with 0 when all is written, 2 when something could not be read or written.";
constexpr const char* kEndsAfterMaking =
    "Ends with 0 when all is written, 1 when something was told of a result, 2 when something "
    "could not be read or written.";

/// The two numbers of "X,Y" or "WIDTHxHEIGHT".
std::optional<std::array<float, 2>> TwoNumbers(const std::string& text, char separator) {
  std::array<float, 2> numbers{};
  const char* end = text.data() + text.size();
  const auto first = std::from_chars(text.data(), end, numbers[0]);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != separator) return std::nullopt;
  const auto second = std::from_chars(first.ptr + 1, end, numbers[1]);
  const bool isWhole = second.ec == std::errc() && second.ptr == end;
  const bool isFinite = std::isfinite(numbers[0]) && std::isfinite(numbers[1]);
  return isWhole && isFinite ? std::optional(numbers) : std::nullopt;
}

CLI::callback_t ReadPlace(std::optional<WorldPoint>& place) {
  return [&place](const CLI::results_t& words) {
    const auto numbers = TwoNumbers(words.front(), ',');
    if (numbers) place = WorldPoint{(*numbers)[0], (*numbers)[1]};
    return numbers.has_value();
  };
}

CLI::callback_t ReadSize(PictureOptions& picture) {
  return [&picture](const CLI::results_t& words) {
    const auto numbers = TwoNumbers(words.front(), 'x');
    if (!numbers) return false;
    const auto isSide = [](float side) {
      return side >= 1 && side <= kLargestSide && side == std::floor(side);
    };
    if (!std::ranges::all_of(*numbers, isSide)) return false;
    picture.width = static_cast<int>((*numbers)[0]);
    picture.height = static_cast<int>((*numbers)[1]);
    picture.isSizeTold = true;
    return std::int64_t{picture.width} * picture.height <= kMostPixels;
  };
}

CLI::callback_t ReadZoom(std::optional<float>& zoom) {
  return [&zoom](const CLI::results_t& words) {
    const std::string& text = words.front();
    const char* end = text.data() + text.size();
    float percent = 0;
    const auto result = std::from_chars(text.data(), end, percent);
    const bool isWhole = result.ptr == end || std::string_view(result.ptr, end) == "%";
    if (result.ec != std::errc() || !isWhole || !(percent >= 1 && percent <= 10000)) return false;
    zoom = percent / 100;
    return true;
  };
}

/// "polygons,spawns", in the order of ShowFlag; "all" for every kind.
CLI::callback_t ReadShow(ShowOptions& show) {
  return [&show](const CLI::results_t& words) {
    constexpr std::array<std::string_view, 6> kNames = {"polygons",  "spawns",    "sceneries",
                                                        "colliders", "waypoints", "advanced"};
    show.showFlags.fill(0);
    std::stringstream list(words.front());
    for (std::string name; std::getline(list, name, ',');) {
      const auto found = std::ranges::find(kNames, name);
      if (name == "all") {
        std::fill_n(show.showFlags.begin(), kNames.size(), std::int16_t{1});
      } else if (found != kNames.end()) {
        show.showFlags[static_cast<std::size_t>(found - kNames.begin())] = 1;
      } else {
        return false;
      }
    }
    return true;
  };
}

/// Builds the commands; what is read goes to `arguments`.
class Reader {
 public:
  Reader(CLI::App& app, Arguments& arguments) : app_(app), arguments_(arguments) {}

  void AddAll() {
    AddInfo();
    AddCheck();
    AddSaves();
    AddRender();
    AddDiff();
    AddPrefab();
    AddRescue();
  }

 private:
  CLI::App* Add(CLI::App& parent, Command command, const std::string& name,
                const std::string& description) {
    CLI::App* added = parent.add_subcommand(name, description);
    added->callback([this, command] { arguments_.command = command; });
    added->add_flag("--json", arguments_.json, "Tell everything as JSON, for programs");
    return added;
  }
  void TakesMaps(CLI::App& command) {
    command
        .add_option("MAP", arguments_.inputs,
                    "Map files; folders, for all maps below them; - for standard input")
        ->required()
        ->type_name("");
    command.add_option("--name", arguments_.name, "What a map from standard input is called")
        ->type_name("NAME");
    command.add_option("-j,--jobs", arguments_.jobs, "Maps to work on at once")
        ->check(CLI::Range(1, kMostJobs))
        ->type_name("N");
  }
  CLI::Option* TakesOutput(CLI::App& command, const std::string& description) {
    return command.add_option("-o,--output", arguments_.output, description)->type_name("OUT");
  }
  void TakesMapOutput(CLI::App& command) {
    CLI::Option* output = TakesOutput(
        command, "The file to write; a folder, for several maps; - for standard output");
    command
        .add_flag(
            "--in-place", arguments_.inPlace,
            "Replace the maps themselves; the one replaced last is kept as backup.pmp, as the "
            "editor does")
        ->excludes(output);
    command.footer(kEndsAfterMaking);
  }

  void AddInfo() {
    TakesMaps(*Add(app_, Command::kInfo, "info",
                   "Tell name, author, texture, colours, counts and extent of maps"));
  }
  void AddCheck() {
    CLI::App* check = Add(app_, Command::kCheck, "check",
                          "Find everything that is wrong with maps, one finding a line");
    TakesMaps(*check);
    check->add_flag_callback(
        "--no-hints", [this] { arguments_.hints = false; },
        "Errors only: no hints, which tell what the game copes with or a save mends");
    check->footer(
        "Ends with 0 when nothing was found, 1 with findings, 2 when a map could not be "
        "read.");
  }
  void AddSaves() {
    for (const auto& [command, name, description] :
         {std::tuple{Command::kCompile, "compile",
                     "Compile maps as the editor does, and save them"},
          std::tuple{Command::kResave, "resave", "Save maps as the editor does"}}) {
      CLI::App* added = Add(app_, command, name, description);
      TakesMaps(*added);
      TakesMapOutput(*added);
    }
  }
  void AddRender() {
    PictureOptions& picture = arguments_.picture;
    CLI::App* render = Add(app_, Command::kRender, "render", "Draw maps as PNG or SVG pictures");
    TakesMaps(*render);
    TakesOutput(*render, "The picture, .png or .svg; a folder, for several; - for standard output")
        ->required();
    render
        ->add_option("--size", ReadSize(picture),
                     "Size in pixels, a side at most " + std::to_string(kLargestSide) + ", " +
                         std::to_string(kMostPixels / 1'000'000) +
                         " million in all; 1280x800 if not told")
        ->type_name("WIDTHxHEIGHT");
    render
        ->add_option("--zoom", ReadZoom(picture.zoom), "Percent; if not told the whole map is seen")
        ->type_name("PERCENT");
    render
        ->add_option("--center", ReadPlace(picture.center),
                     "The place in the middle; if not told that of the map")
        ->type_name("X,Y");
    render
        ->add_option("--show", ReadShow(picture.show),
                     "Only these, of: polygons spawns sceneries colliders waypoints advanced all")
        ->type_name("KIND,...");
    CLI::Option* filled =
        render->add_flag("--filled", picture.filled,
                         "Paint polygons with their colours and the background with its two");
    render
        ->add_option("--textures", picture.textures,
                     "Where the textures of filled polygons lie; if not told, in the game's folder")
        ->type_name("FOLDER")
        ->needs(filled);
    render->add_flag("--poster", picture.poster, "All maps in one picture, with their names");
    render->add_flag("--svg", picture.svg, "SVG, where the output's name does not tell");
    render->footer(kEndsAfterWriting);
  }
  void AddDiff() {
    CLI::App* diff =
        Add(app_, Command::kDiff, "diff", "Tell what differs between two maps, object by object");
    diff->add_option("MAP", arguments_.inputs,
                     "The map before and the map after; - for one of them")
        ->required()
        ->expected(2)
        ->type_name("");
    diff->footer(
        "Ends with 0 when nothing differs, 1 with differences, 2 when a map could not be "
        "read.");
  }
  void AddPrefab() {
    CLI::App* prefab = app_.add_subcommand("prefab", "Make prefabs of maps, or put one into maps");
    prefab->require_subcommand(1);
    CLI::App* to = Add(*prefab, Command::kPrefabExport, "export", "Write whole maps as prefabs");
    TakesMaps(*to);
    TakesOutput(*to, "The prefab; a folder, for several; - for standard output")->required();
    to->footer(kEndsAfterMaking);
    CLI::App* from = Add(*prefab, Command::kPrefabImport, "import", "Put a prefab into maps");
    from->add_option("PREFAB", arguments_.prefab, "The prefab file")->required()->type_name("");
    TakesMaps(*from);
    TakesMapOutput(*from);
    from->add_option("--at", ReadPlace(arguments_.at),
                     "Where its middle goes; if not told, it lies as it was exported")
        ->type_name("X,Y");
  }
  void AddRescue() {
    CLI::App* rescue = Add(app_, Command::kRescue, "rescue", "Make a map of an undo file");
    rescue->add_option("UNDOFILE", arguments_.inputs, "Undo files; - for standard input")
        ->required()
        ->type_name("");
    TakesOutput(*rescue, "The map; a folder, for several; - for standard output")->required();
    rescue->footer(kEndsAfterWriting);
  }

  CLI::App& app_;
  Arguments& arguments_;
};

/// The words that should name a command and name none; empty when all is well so far.
std::string UnknownCommand(const CLI::App& app, const std::vector<std::string>& words) {
  const CLI::App* command = &app;
  std::string name;
  for (const std::string& word : words) {
    if (command->get_require_subcommand_min() == 0 || word.starts_with("-")) break;
    name += (name.empty() ? "" : " ") + word;
    const auto isMeant = [&](const CLI::App* each) { return each->get_name() == word; };
    const auto found = command->get_subcommands(isMeant);
    if (found.empty()) return name;
    command = found.front();
  }
  return {};
}

}  // namespace

Parsing ParseArguments(const std::vector<std::string>& words, int processors) {
  Arguments arguments;
  arguments.jobs = std::clamp(processors, 1, kMostJobs);
  CLI::App app(
      "Checks, compiles, draws and compares maps of the game Soldat (.pmp) without a window.",
      "vesmora-map");
  app.allow_windows_style_options(false);  // a path may start with a slash
  app.set_version_flag("--version", "vesmora-map " VESMORA_VERSION);
  app.require_subcommand(1);
  app.get_formatter()->column_width(36);
  Reader reader(app, arguments);  // what it has added calls it
  reader.AddAll();
  // Only now: commands would take it over.
  app.footer(
      "Examples:\n"
      "  vesmora-map check maps/                           all that is wrong in a folder of maps\n"
      "  vesmora-map render --poster maps/ -o maps.png     all of them in one picture\n"
      "  vesmora-map compile ctf_Hill.pmp --in-place       ready for the game\n"
      "  vesmora-map diff old.pmp new.pmp                  what has changed\n"
      "\"vesmora-map COMMAND --help\" tells the options of a command.");
  if (const std::string unknown = UnknownCommand(app, words); !unknown.empty()) {
    return {.arguments = std::nullopt,
            .status = kTrouble,
            .output = {},
            .error = "There is no command \"" + unknown + "\"; --help tells which there are.\n"};
  }
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::ParseError& problem) {
    std::ostringstream output;
    std::ostringstream error;
    const int code = app.exit(problem, output, error);
    return {.arguments = std::nullopt,
            .status = code == 0 ? kSuccess : kTrouble,
            .output = output.str(),
            .error = error.str()};
  }
  return {.arguments = std::move(arguments), .output = {}, .error = {}};
}

}  // namespace vesmora::map_tool
