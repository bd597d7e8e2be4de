#include "panel/qt/color_button.h"

#include <QPainter>

namespace vesmora {
namespace {

constexpr int kSwatchMargin = 4;  // pixels, around the colour of a disabled button

/// Whichever of black and white can be read on the colour.
QColor ContrastTo(const QColor& color) {
  const int brightness = (color.red() * 299 + color.green() * 587 + color.blue() * 114) / 1000;
  return brightness < 128 ? Qt::white : Qt::black;
}

/// A line of one pixel along the inside of `rect`.
void DrawLineAround(QPainter& painter, const QRect& rect, const QColor& color) {
  painter.setPen(QPen(color, 1));
  painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

}  // namespace

ColorButton::ColorButton(const QString& caption, const QString& name, const QString& purpose)
    : QPushButton(caption), purpose_(purpose) {
  setObjectName(name);
  Describe();
}

void ColorButton::SetColor(const std::optional<QColor>& color) {
  if (color_ == color) return;
  color_ = color;
  Describe();
  update();
}

void ColorButton::Describe() {
  QString text = purpose_;
  if (color_) {
    text += QString("\nred %1, green %2, blue %3")
                .arg(color_->red())
                .arg(color_->green())
                .arg(color_->blue());
  }
  setToolTip(text);
  setAccessibleDescription(text.replace("\n", ": "));
}

void ColorButton::paintEvent(QPaintEvent* event) {
  if (!color_) {
    QPushButton::paintEvent(event);
    return;
  }
  QPainter painter(this);
  const QColor contrast = ContrastTo(*color_);
  if (!isEnabled()) {  // the colour on a sheet, without the frame that invites to press it
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.fillRect(rect().adjusted(kSwatchMargin, kSwatchMargin, -kSwatchMargin, -kSwatchMargin),
                     *color_);
  } else {
    painter.fillRect(rect(), *color_);
    DrawLineAround(painter, rect(), palette().color(QPalette::WindowText));
  }
  if (hasFocus()) {
    const QColor focus = palette().color(QPalette::Highlight);
    DrawLineAround(painter, rect(), focus);
    DrawLineAround(painter, rect().adjusted(1, 1, -1, -1), focus);
    DrawLineAround(painter, rect().adjusted(2, 2, -2, -2), contrast);
  } else if (isDown()) {
    DrawLineAround(painter, rect().adjusted(1, 1, -1, -1), contrast);
  }
  const QRect place = isDown() ? rect().translated(1, 1) : rect();
  painter.setPen(contrast);
  painter.drawText(place, Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

}  // namespace vesmora
