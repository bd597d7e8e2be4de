#include "view/layout.h"

#include <algorithm>

namespace vesmora {
namespace {

// The map itself never gets less than this, outer frame included.
constexpr int kLeastMapWidth = 648;
constexpr int kLeastMapHeight = 534;

constexpr int kPalaTuck = 4;         // Pala reaches this far under Ppalkki
constexpr int kFmaskiLead = 15;      // the seam frames begin this far left of Ppalkki, and reach it
constexpr int kPpalkkiOverhang = 2;  // hides its lower border

}  // namespace

WindowSize MinimumWindowSize(const PanelSizes& sizes, WindowSize frame, WindowSize screen) {
  const int width =
      sizes.ppalkkiWidth + std::max(kLeastMapWidth - frame.width, sizes.stripWidth + kFmaskiLead);
  const int height = sizes.palaHeight + sizes.pylaHeight + kLeastMapHeight - frame.height;
  return {std::min(width, screen.width - frame.width),
          std::min(height, screen.height - frame.height)};
}

WindowLayout ComputeLayout(const PanelSizes& sizes, int clientWidth, int clientHeight) {
  const int mapRight = clientWidth - sizes.ppalkkiWidth;
  const int palaTop = clientHeight - sizes.palaHeight;
  const int seam = mapRight - kFmaskiLead;
  return {
      .ppalkki = {mapRight, 0, sizes.ppalkkiWidth, clientHeight + kPpalkkiOverhang},
      .pala = {0, palaTop, mapRight + kPalaTuck, sizes.palaHeight},
      .pyla = {0, 0, clientWidth, sizes.pylaHeight},
      .fmaski0 = {seam, palaTop + 2, kFmaskiLead, sizes.palaHeight - 4},
      .fmaski1 = {seam, 0, kFmaskiLead, sizes.pylaHeight - 3},
      .palaCovered = kFmaskiLead + kPalaTuck,
      .pylaCovered = kFmaskiLead + sizes.ppalkkiWidth,
  };
}

int StripRoom(const PanelSizes& sizes, int clientWidth) {
  return clientWidth - sizes.ppalkkiWidth - kFmaskiLead;
}

DrawingArea ComputeDrawingArea(const PanelSizes& sizes, int clientWidth, int clientHeight) {
  return {.width = clientWidth,
          .height = clientHeight,
          .rightPanelWidth = sizes.ppalkkiWidth,
          .bottomPanelHeight = sizes.palaHeight,
          .topPanelHeight = sizes.pylaHeight};
}

}  // namespace vesmora
