#include "map_tool/commands.h"
#include "map_tool/picture.h"
#include "map_tool/png_file.h"
#include "view/svg_canvas.h"

namespace vesmora::map_tool {

Outcome RenderOne(const Task& task, Workbench& bench) {
  Outcome outcome = StartPicture(task, bench);
  if (outcome.status == kTrouble) return outcome;
  const PictureOptions& options = task.arguments.picture;
  const auto& [width, height] = std::pair(options.width, options.height);
  if (IsSvg(options, task.target)) {
    outcome.bytes =
        BytesOf(SvgFile(width, height, MapElements(bench, options, task.texture, width, height)));
  } else {
    outcome.bytes = EncodePng(PaintMap(bench, options, task.texture, width, height));
  }
  return outcome;
}

}  // namespace vesmora::map_tool
