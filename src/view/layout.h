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

/// What the panels take in the user's font, in pixels.
struct PanelSizes {
  int ppalkkiWidth = 0;
  int palaHeight = 0;
  int pylaHeight = 0;
  int stripWidth = 0;  // the least in which both strips show all of their controls

  bool operator==(const PanelSizes&) const = default;
};

struct WindowSize {
  int width = 0;
  int height = 0;

  bool operator==(const WindowSize&) const = default;
};

/// Smallest size of the window without its frame, menu bar included. `frame` is what the frame
/// adds; together they fit on `screen`.
WindowSize MinimumWindowSize(const PanelSizes& sizes, WindowSize frame, WindowSize screen);

struct WindowLayout {
  PanelRect ppalkki;  // properties, on the right
  PanelRect pala;     // view controls, along the bottom
  PanelRect pyla;     // tools, along the top
  PanelRect fmaski0;  // covers the seam between Pala and Ppalkki
  PanelRect fmaski1;  // covers the seam between Pyla and Ppalkki
  // How much of a strip's right end lies under other panels.
  int palaCovered = 0;
  int pylaCovered = 0;
};

WindowLayout ComputeLayout(const PanelSizes& sizes, int clientWidth, int clientHeight);

/// What is seen of the strips between the window's left edge and the seams, in pixels.
int StripRoom(const PanelSizes& sizes, int clientWidth);

DrawingArea ComputeDrawingArea(const PanelSizes& sizes, int clientWidth, int clientHeight);

}  // namespace vesmora
