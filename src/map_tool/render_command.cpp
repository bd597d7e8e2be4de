#include "map_tool/commands.h"
#include "map_tool/map_reading.h"
#include "map_tool/picture.h"
#include "map_tool/png_file.h"
#include "platform/text.h"
#include "view/svg_canvas.h"

namespace vesmora::map_tool {

Outcome RenderOne(const Task& task, Workbench& bench) {
  const std::string& name = task.input.name;
  const ReadMap read = ReadMapFile(task.file, name, false, bench.document, bench.selection);
  if (!read.problem.empty()) return Trouble(name, read.problem);
  const PictureOptions& options = task.arguments.picture;
  Outcome outcome;
  outcome.json["file"] = name;
  outcome.json["output"] = task.target;
  if (options.svg || EndsIgnoringCase(task.target, ".svg")) {
    const std::string text =
        SvgFile(options.width, options.height,
                MapElements(bench, options, task.texture, options.width, options.height));
    const auto bytes = std::as_bytes(std::span(text));
    outcome.bytes.assign(bytes.begin(), bytes.end());
  } else {
    const Picture picture = PictureOf(bench, options.width, options.height);
    PaintMap(bench, options, task.texture, picture);
    outcome.bytes = EncodePng(picture);
  }
  return outcome;
}

}  // namespace vesmora::map_tool
