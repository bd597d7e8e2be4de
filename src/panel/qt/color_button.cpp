#include "panel/qt/color_button.h"

#include <QPainter>

namespace vesmora {
namespace {

// Pixels.
constexpr int kSwatchMargin = 4;  // around the colour of a disabled button
constexpr int kFocusRing = 2;

/// Whichever of black and white can be read on the colour.
QColor ContrastTo(const QColor& color) {
  const int brightness = (color.red() * 299 + color.green() * 587 + color.blue() * 114) / 1000;
  return brightness < 128 ? Qt::white : Qt::black;
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
  QRect face = rect();
  // Filled, not drawn: at fractions of a scale lines would fall short of the edge.
  const auto addRing = [&painter, &face](const QColor& color, int pixels) {
    painter.fillRect(face, color);
    face.adjust(pixels, pixels, -pixels, -pixels);
  };
  if (!isEnabled()) {  // the colour on a sheet, without the frame that invites to press it
    addRing(palette().color(QPalette::Window), kSwatchMargin);
  } else if (hasFocus()) {
    addRing(palette().color(QPalette::Highlight), kFocusRing);
    addRing(contrast, 1);
  } else {
    addRing(palette().color(QPalette::WindowText), 1);
  }
  if (isDown()) addRing(contrast, 1);
  painter.fillRect(face, *color_);
  const QRect place = isDown() ? rect().translated(1, 1) : rect();
  painter.setPen(contrast);
  painter.drawText(place, Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

}  // namespace vesmora
