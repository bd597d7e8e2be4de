#include "view/view_transform.h"

#include <algorithm>
#include <cmath>

#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr float kAlmostZero = 1e-14f;
constexpr double kPiDouble = 3.14159265358979;

double CenterX(const DrawingArea& area) { return area.width / 2.0 - area.rightPanelWidth / 2.0; }

double CenterY(const DrawingArea& area) { return area.height / 2.0 - area.bottomPanelHeight / 2.0; }

template <typename List, typename Value>
int IndexIn(const List& list, Value value) {
  return static_cast<int>(std::ranges::find(list, value) - list.begin());
}

bool GridIsTooDense(const ViewTransform& view) {
  if (view.gridSize < 1) return false;
  if (view.zoom < 1 && view.gridSize < 25) return true;
  return view.zoom < 2 && view.gridSize < 10;
}

/// Nearest multiple of the grid to a coordinate that is rounded first.
float SnapToWorldGrid(float world, std::int16_t gridSize) {
  const double whole = RoundToInt16(world);
  return static_cast<float>(RoundToInt32(whole / gridSize) * gridSize);
}

float SnapToWindowGrid(float screen, double spacing) {
  return RoundToInt16(RoundToInt32(screen / spacing) * spacing);
}

}  // namespace

float ViewTransform::LaskeRuutuX(float worldX) const {
  return static_cast<float>((static_cast<double>(worldX) - centerX) * zoom + CenterX(area) - 0.5);
}

float ViewTransform::LaskeRuutuY(float worldY) const {
  return static_cast<float>((static_cast<double>(worldY) - centerY) * zoom + CenterY(area) + 0.5);
}

float ViewTransform::LaskeRuutu2X(float screenX) const {
  return static_cast<float>((screenX - CenterX(area)) / zoom + centerX);
}

float ViewTransform::LaskeRuutu2Y(float screenY) const {
  return static_cast<float>((screenY - CenterY(area)) / zoom + centerY);
}

WorldPoint ViewTransform::SnapToGrid(float screenX, float screenY) const {
  if (fixedGrid) {
    const double spacing = static_cast<double>(gridSize) * zoom;
    return {LaskeRuutu2X(SnapToWindowGrid(screenX, spacing)),
            LaskeRuutu2Y(SnapToWindowGrid(screenY, spacing))};
  }
  return {SnapToWorldGrid(LaskeRuutu2X(screenX), gridSize),
          SnapToWorldGrid(LaskeRuutu2Y(screenY), gridSize)};
}

WorldPoint PolarToOffset(float angle, float radius, bool swapAxes) {
  if (swapAxes) {
    return {static_cast<float>(std::sin(double{angle}) * radius),
            static_cast<float>(std::cos(double{angle}) * radius)};
  }
  return {static_cast<float>(std::cos(-double{angle}) * radius),
          static_cast<float>(std::sin(-double{angle}) * radius)};
}

PolarOffset OffsetToPolar(float dx, float dy) {
  const double x = dx == 0 ? kAlmostZero : dx;
  const double y = dy == 0 ? kAlmostZero : dy;
  const double angle = std::atan(y / x);
  return {static_cast<float>(x < 0 ? kPiDouble - angle : -angle),
          static_cast<float>(std::sqrt(x * x + y * y))};
}

int ZoomIndex(const ViewTransform& view) { return IndexIn(kZoomLevels, view.zoom); }

int GridIndex(const ViewTransform& view) { return IndexIn(kGridSizes, view.gridSize); }

bool StepZoomLevel(ViewTransform& view, int step) {
  const int index = ZoomIndex(view) + step;
  if (index < 0 || index >= static_cast<int>(kZoomLevels.size())) return false;
  view.zoom = kZoomLevels[static_cast<std::size_t>(index)];
  return true;
}

bool ZoomByWheel(ViewTransform& view, int delta) {
  constexpr int kNotch = 120;
  if (delta < -kNotch || delta > kNotch) return false;
  const bool turnsBack = delta < 0 ? view.wheelRest > 0 : delta > 0 && view.wheelRest < 0;
  const int turned = (turnsBack ? 0 : view.wheelRest) + delta;
  const int notches = turned / kNotch;
  view.wheelRest = turned % kNotch;
  return notches != 0 && StepZoomLevel(view, -notches);
}

void CoarsenGrid(ViewTransform& view) {
  while (GridIsTooDense(view)) {
    view.gridSize = kGridSizes[static_cast<std::size_t>(GridIndex(view) - 1)];
  }
}

bool TrackMouse(ViewTransform& view, float x, float y) {
  if (view.panning) {
    view.centerX += (view.lastMouseX - x) / view.zoom;
    view.centerY += (view.lastMouseY - y) / view.zoom;
  }
  view.lastMouseX = x;
  view.lastMouseY = y;
  return view.panning;
}

void ResetView(ViewTransform& view) {
  view.centerX = 0;
  view.centerY = 0;
  view.zoom = kZoomLevels[kDefaultZoomIndex];
  view.gridSize = 0;
}

}  // namespace vesmora
