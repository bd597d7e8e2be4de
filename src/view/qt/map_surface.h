// The map's drawing surface: shows the last finished frame and hands mouse input on.
#pragma once

#include <QImage>
#include <QWidget>

#include "view/draw_map.h"
#include "view/input.h"
#include "view/qt/painter_canvas.h"

namespace vesmora {

class MapSurface final : public QWidget {
  Q_OBJECT

 public:
  explicit MapSurface(QWidget* parent);

  /// Paints the whole scene into the kept frame, which is shown at once and
  /// survives the window being covered.
  void Draw(const MapScene& scene);

 Q_SIGNALS:
  void Pressed(const vesmora::MouseInput& input);
  void Moved(const vesmora::MouseInput& input);
  void Released(const vesmora::MouseInput& input);
  void WheelTurned(int delta);
  void PointerLeft();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void FitFrame();

  QImage frame_;
  PainterCanvas canvas_;
};

}  // namespace vesmora
