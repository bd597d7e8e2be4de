#include "view/qt/map_surface.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QWheelEvent>

namespace vesmora {
namespace {

MouseButton ToButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::NoButton:
      return MouseButton::kNone;
    case Qt::LeftButton:
      return MouseButton::kLeft;
    case Qt::RightButton:
      return MouseButton::kRight;
    default:
      return MouseButton::kOther;
  }
}

MouseInput ToInput(const QMouseEvent& event) {
  return {.button = ToButton(event.button()),
          .x = static_cast<float>(event.position().x()),
          .y = static_cast<float>(event.position().y()),
          .leftIsUp = !event.buttons().testFlag(Qt::LeftButton),
          .rightIsUp = !event.buttons().testFlag(Qt::RightButton)};
}

}  // namespace

MapSurface::MapSurface(QWidget* parent) : QWidget(parent), canvas_(font(), kMapBackground) {
  setObjectName("Map");
  setAccessibleName("Map");
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setContextMenuPolicy(Qt::PreventContextMenu);  // the right button pans
}

void MapSurface::FitFrame() {
  const qreal ratio = devicePixelRatioF();
  const QSize pixels = size() * ratio;
  if (frame_.size() == pixels && frame_.devicePixelRatio() == ratio) return;
  frame_ = QImage(pixels, QImage::Format_RGB32);
  frame_.setDevicePixelRatio(ratio);
}

void MapSurface::Draw(const MapScene& scene) {
  FitFrame();
  if (frame_.isNull()) return;
  canvas_.Begin(frame_);
  DrawMap(scene, canvas_);
  canvas_.End();
  update();
}

void MapSurface::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (frame_.isNull()) {
    painter.fillRect(event->rect(), kMapBackground);
    return;
  }
  painter.drawImage(0, 0, frame_);
}

void MapSurface::mousePressEvent(QMouseEvent* event) { Q_EMIT Pressed(ToInput(*event)); }

void MapSurface::mouseMoveEvent(QMouseEvent* event) { Q_EMIT Moved(ToInput(*event)); }

void MapSurface::mouseReleaseEvent(QMouseEvent* event) { Q_EMIT Released(ToInput(*event)); }

void MapSurface::wheelEvent(QWheelEvent* event) {
  Q_EMIT WheelTurned(event->angleDelta().y());
  event->accept();
}

void MapSurface::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) canvas_.SetFont(font());
  QWidget::changeEvent(event);
}

void MapSurface::leaveEvent(QEvent* /*event*/) { Q_EMIT PointerLeft(); }

}  // namespace vesmora
