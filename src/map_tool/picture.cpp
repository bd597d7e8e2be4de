#include "map_tool/picture.h"

#include "map_tool/map_reading.h"
#include "map_tool/png_file.h"
#include "platform/text.h"
#include "view/draw_map.h"
#include "view/filled_picture.h"
#include "view/map_picture.h"
#include "view/memory_canvas.h"
#include "view/svg_canvas.h"

namespace vesmora::map_tool {
namespace {

ViewTransform ViewFor(const MapDocument& document, const PictureOptions& options, int width,
                      int height) {
  ViewTransform view = WholeMapView(document, width, height);
  if (options.zoom) view.zoom = *options.zoom;
  if (options.center) {
    view.centerX = options.center->x;
    view.centerY = options.center->y;
  }
  return view;
}

/// All but what a filled ground shows already.
void DrawOn(Canvas& canvas, Workbench& bench, const PictureOptions& options, ViewTransform& view) {
  ShowOptions show = options.show;
  if (options.filled) show.showFlags[static_cast<std::size_t>(ShowFlag::kPolygons)] = 0;
  const Selection nothing;
  DrawMap({.document = bench.document,
           .selection = nothing,
           .view = view,
           .show = show,
           .tool = ToolDrawing{.showsNext = false}},
          canvas);
}

std::string Base64(const std::vector<std::byte>& bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      const auto byte = i + k < bytes.size() ? std::to_integer<std::uint32_t>(bytes[i + k]) : 0U;
      group = group << 8U | byte;
    }
    for (std::size_t k = 0; k < 4; ++k) {
      const bool isPadding = i + k > bytes.size();
      text += isPadding ? '=' : kDigits[group >> (18U - 6U * k) & 63U];
    }
  }
  return text;
}

/// The filled ground, which SVG has no words for, as a picture in it.
std::string GroundElement(const std::vector<std::byte>& png, int width, int height) {
  return "<image width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
         "\" href=\"data:image/png;base64," + Base64(png) + "\"/>\n";
}

/// The picture of the bench's pixels, made as large as told.
Picture PictureOf(Workbench& bench, int width, int height) {
  bench.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  return {.first = bench.pixels.data(), .stride = width, .width = width, .height = height};
}

}  // namespace

bool IsSvg(const PictureOptions& options, const std::string& target) {
  return options.svg || EndsIgnoringCase(target, ".svg");
}

Outcome StartPicture(const Task& task, Workbench& bench) {
  const std::string& name = task.input.name;
  const ReadMap read = ReadMapFile(task.file, name, false, bench.document, bench.selection);
  if (!read.problem.empty()) return Trouble(name, read.problem);
  Outcome outcome;
  outcome.json["file"] = name;
  outcome.json["output"] = task.target;
  return outcome;
}

Picture PaintMap(Workbench& bench, const PictureOptions& options, const Texture* texture, int width,
                 int height) {
  const Picture picture = PictureOf(bench, width, height);
  ViewTransform view = ViewFor(bench.document, options, width, height);
  if (options.filled) {
    PaintFilled(bench.document, view, texture, options.show.Shows(ShowFlag::kPolygons), picture);
  }
  MemoryCanvas canvas(picture, options.filled);
  DrawOn(canvas, bench, options, view);
  return picture;
}

std::string MapElements(Workbench& bench, const PictureOptions& options, const Texture* texture,
                        int width, int height) {
  ViewTransform view = ViewFor(bench.document, options, width, height);
  std::string ground;
  if (options.filled) {
    const Picture picture = PictureOf(bench, width, height);
    PaintFilled(bench.document, view, texture, options.show.Shows(ShowFlag::kPolygons), picture);
    ground = GroundElement(EncodePng(picture), width, height);
  }
  SvgCanvas canvas(width, height, ground);
  DrawOn(canvas, bench, options, view);
  return canvas.TakeElements();
}

}  // namespace vesmora::map_tool
