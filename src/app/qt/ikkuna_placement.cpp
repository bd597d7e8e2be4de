// Where the window stands, and how small it may be.
#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "app/qt/ikkuna.h"
#include "app/window_placement.h"
#include "document/numbers.h"
#include "view/layout.h"

namespace vesmora {
namespace {

std::vector<ScreenRect> ScreenRects() {
  std::vector<ScreenRect> rects;
  for (const QScreen* screen : QApplication::screens()) {
    const QRect area = screen->availableGeometry();
    rects.push_back({area.x(), area.y(), area.width(), area.height()});
  }
  return rects;
}

}  // namespace

/// A comfortable window for the first start: most of the screen, but no more than
/// a map needs.
QSize Ikkuna::FirstSize() {
  const QSize room = QApplication::primaryScreen()->availableSize() * 0.9;
  return room.boundedTo(QSize(1280, 860));
}

void Ikkuna::RestorePlacement() {
  const WindowPlacement placement = LoadPlacement(settings_);
  unusedPlacement_ = placement;
  if (placement.state == static_cast<std::int16_t>(WindowState::kMinimised)) {
    setWindowState(Qt::WindowMinimized);
    return;
  }
  if (placement.state.value_or(0) != static_cast<std::int16_t>(WindowState::kNormal)) {
    setWindowState(Qt::WindowMaximized);
    return;
  }
  unusedPlacement_.reset();
  // The client area's place, not the frame's: before the window is up only that one
  // is certain to be met.
  const ScreenRect wanted{placement.left.value_or(RoundToInt16(geometry().x())),
                          placement.top.value_or(RoundToInt16(geometry().y())),
                          placement.width.value_or(RoundToInt16(width())),
                          placement.height.value_or(RoundToInt16(height()))};
  const ScreenRect fitting = FitToScreens(wanted, ScreenRects());
  if (placement.left || placement.top) {
    setGeometry(fitting.left, fitting.top, fitting.width, fitting.height);
  } else {
    resize(fitting.width, fitting.height);
  }
}

WindowPlacement Ikkuna::Placement() const {
  WindowState state = WindowState::kNormal;
  if (isMaximized()) state = WindowState::kMaximised;
  if (isMinimized()) state = WindowState::kMinimised;
  if (unusedPlacement_) {
    WindowPlacement placement = *unusedPlacement_;
    placement.state = static_cast<std::int16_t>(state);
    return placement;
  }
  // A maximised window keeps the place it returns to.
  const bool isNormal = state == WindowState::kNormal;
  const QRect place = isNormal ? geometry() : normalGeometry();
  return {.state = static_cast<std::int16_t>(state),
          .top = RoundToInt16(place.y()),
          .left = RoundToInt16(place.x()),
          .width = RoundToInt16(place.width()),
          .height = RoundToInt16(place.height())};
}

void Ikkuna::Minimize() { showMinimized(); }

void Ikkuna::Unminimize() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  activateWindow();
}

void Ikkuna::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (firstResize_) {
    firstResize_ = false;
    RestorePlacement();
  }
  EnforceMinimumSize();
}

/// Even sizes: the view's centre then lies between pixels no more than the window's own does.
PanelSizes Ikkuna::MeasurePanels() const {
  const auto even = [](int size) { return size + size % 2; };
  PanelSizes sizes;
  sizes.ppalkkiWidth = even(ppalkki_->WidthFor(client_->height()));
  const int room = StripRoom(sizes, client_->width());
  sizes.palaHeight = even(pala_->HeightFor(room));
  sizes.pylaHeight = pyla_->HeightFor(room);
  sizes.stripWidth = std::max(pala_->RowWidth(), pyla_->RowWidth());
  return sizes;
}

/// The minimum counts the frame that the window manager draws, which is known only once the
/// window is up. Until then there is none: a window that was left at its smallest would grow.
void Ikkuna::EnforceMinimumSize() {
  const QSize frame = frameGeometry().size() - size();
  isFrameKnown_ = isFrameKnown_ || isActiveWindow() || !frame.isNull();
  if (!isFrameKnown_) return;
  const QSize room = screen()->availableSize();
  const WindowSize minimum =
      MinimumWindowSize(sizes_, {frame.width(), frame.height()}, {room.width(), room.height()});
  setMinimumSize(minimum.width, minimum.height);
}

}  // namespace vesmora
