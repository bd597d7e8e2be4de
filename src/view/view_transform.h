// ViewTransform: which part of the map the window shows and how large, and the
// only place where world and window positions are converted into each other.
#pragma once

#include <array>
#include <cstdint>

#include "document/world_point.h"

namespace vesmora {

/// Sizes of the client area and of the panels over its edges, in pixels.
struct DrawingArea {
  int width = 0;              // W
  int height = 0;             // H
  int rightPanelWidth = 0;    // of Ppalkki
  int bottomPanelHeight = 0;  // of Pala
  int topPanelHeight = 0;     // of Pyla; no part of the view's centre
};

/// Window pixels per world unit, by the index of the zoom list.
inline constexpr std::array<float, 5> kZoomLevels = {4.0f, 2.0f, 1.0f, 0.5f, 0.25f};
inline constexpr int kDefaultZoomIndex = 2;
/// World units, by the index of the grid list; 0 is no grid.
inline constexpr std::array<std::int16_t, 6> kGridSizes = {0, 100, 50, 25, 10, 5};

struct ViewTransform {
  float centerX = 0;  // world point in the middle of the drawing area
  float centerY = 0;
  float zoom = kZoomLevels[kDefaultZoomIndex];
  std::int16_t gridSize = 0;
  bool fixedGrid = false;  // the grid stands still on the window, not on the map
  bool panning = false;
  float lastMouseX = 0;  // window position of the previous mouse move
  float lastMouseY = 0;
  int wheelRest = 0;  // what the wheel has turned beyond its last whole notch
  DrawingArea area;

  // World to window and back. The half pixels differ on purpose and the way
  // back has none: drawing and picking are tuned to it.
  float LaskeRuutuX(float worldX) const;
  float LaskeRuutuY(float worldY) const;
  float LaskeRuutu2X(float screenX) const;
  float LaskeRuutu2Y(float screenY) const;

  WorldPoint ToWorld(float screenX, float screenY) const {
    return {LaskeRuutu2X(screenX), LaskeRuutu2Y(screenY)};
  }

  /// The grid point nearest to a window position. Only with gridSize >= 1.
  WorldPoint SnapToGrid(float screenX, float screenY) const;
};

/// Offset of a point at `radius` in direction `angle` (radians, counter-clockwise
/// on a screen whose y points down); `swapAxes` gives the direction at right angles.
WorldPoint PolarToOffset(float angle, float radius, bool swapAxes);

struct PolarOffset {
  float angle = 0;  // radians, in (-pi/2, 3 pi/2)
  float length = 0;
};

PolarOffset OffsetToPolar(float dx, float dy);

/// Position of the current zoom and grid in their lists.
int ZoomIndex(const ViewTransform& view);
int GridIndex(const ViewTransform& view);

/// One zoom larger (-1) or smaller (1) in the list; false, with nothing changed, at its ends.
bool StepZoomLevel(ViewTransform& view, int step);

/// One zoom step a whole notch of +-120. Parts of one, as touchpads and fine wheels send them,
/// add up until the wheel is turned the other way; more than a notch at once is none. True when the
/// zoom changed.
bool ZoomByWheel(ViewTransform& view, int delta);

/// Steps to a coarser grid until its lines are not too dense for the zoom.
void CoarsenGrid(ViewTransform& view);

/// Carries the view along while panning, and remembers the position either way.
/// True when the view moved and the map must be redrawn.
bool TrackMouse(ViewTransform& view, float x, float y);

/// The view of a fresh map: centre, zoom and grid; sizes and mouse stay.
void ResetView(ViewTransform& view);

}  // namespace vesmora
