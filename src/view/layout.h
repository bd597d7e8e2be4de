// Where the panels lie over the map's edges, and the smallest window that holds them.
#pragma once

#include "view/view_transform.h"

namespace vesmora {

/// Window pixels, from the client area's top left corner.
struct PanelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PanelRect&) const = default;
};

/// The panels' own sizes in pixels.
inline constexpr int kPpalkkiWidth = 332;
inline constexpr int kPalaHeight = 40;
inline constexpr int kPylaHeight = 40;
inline constexpr int kFmaskiWidth = 12;

struct WindowSize {
  int width = 0;
  int height = 0;

  bool operator==(const WindowSize&) const = default;
};

/// Smallest outer size of the window, frame and menu bar included.
WindowSize MinimumWindowSize();

struct WindowLayout {
  PanelRect ppalkki;  // properties, on the right
  PanelRect pala;     // view controls, along the bottom
  PanelRect pyla;     // tools, along the top
  PanelRect fmaski0;  // covers the seam between Pala and Ppalkki
  PanelRect fmaski1;  // covers the seam between Pyla and Ppalkki
};

WindowLayout ComputeLayout(int clientWidth, int clientHeight);

DrawingArea ComputeDrawingArea(int clientWidth, int clientHeight);

}  // namespace vesmora
