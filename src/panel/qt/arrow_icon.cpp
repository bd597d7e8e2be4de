#include "panel/qt/arrow_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace vesmora {
namespace {

/// Points right, in a square of side 1.
QPainterPath ArrowShape() {
  QPainterPath path;
  path.moveTo(0.08, 0.38);
  path.lineTo(0.50, 0.38);
  path.lineTo(0.50, 0.14);
  path.lineTo(0.94, 0.50);
  path.lineTo(0.50, 0.86);
  path.lineTo(0.50, 0.62);
  path.lineTo(0.08, 0.62);
  path.closeSubpath();
  return path;
}

qreal AngleOf(Direction direction) {
  switch (direction) {
    case Direction::kLeft:
      return 180;
    case Direction::kUp:
      return 270;
    case Direction::kDown:
      return 90;
    case Direction::kRight:
      break;
  }
  return 0;
}

class ArrowEngine final : public QIconEngine {
 public:
  explicit ArrowEngine(Direction direction) : direction_(direction) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const QPalette::ColorGroup group =
        mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center());
    painter->rotate(AngleOf(direction_));
    painter->scale(rect.width(), rect.height());
    painter->translate(-0.5, -0.5);
    painter->fillPath(ArrowShape(), QApplication::palette().color(group, QPalette::WindowText));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new ArrowEngine(*this); }

 private:
  Direction direction_;
};

}  // namespace

QIcon ArrowIcon(Direction direction) { return QIcon(new ArrowEngine(direction)); }

}  // namespace vesmora
