#include "view/qt/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

namespace vesmora {
namespace {

// Pixels: at fractions of a scale a line is a little longer and lower than its metrics say.
constexpr int kSlack = 2;

}  // namespace

int WidestWidth(const QFontMetrics& metrics, const QString& text) {
  QChar widestDigit = '0';
  for (QChar digit = '1'; digit <= '9'; digit = QChar(digit.unicode() + 1)) {
    if (metrics.horizontalAdvance(digit) > metrics.horizontalAdvance(widestDigit)) {
      widestDigit = digit;
    }
  }
  int width = 0;
  for (QString line : text.split('\n')) {
    for (QChar& letter : line) {
      if (letter.isDigit()) letter = widestDigit;
    }
    width = std::max(width, metrics.horizontalAdvance(line));
  }
  return width;
}

QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

ElidedLabel::ElidedLabel(const QString& name, const QString& widest) : widest_(widest) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const {
  ensurePolished();
  const QFontMetrics metrics = fontMetrics();
  const int lines = static_cast<int>(widest_.count('\n')) + 1;
  return {WidestWidth(metrics, widest_) + kSlack, lines * metrics.lineSpacing() + kSlack};
}

bool ElidedLabel::IsCut() const {
  const QStringList lines = text().split('\n');
  return std::ranges::any_of(lines, [this](const QString& line) {
    return fontMetrics().horizontalAdvance(line) > width();
  });
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && IsCut()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainTip(text()), this);
    return true;
  }
  return QLabel::event(event);
}

// Line by line: at fractions of a scale the toolkit's own lines grow farther apart than the metrics
// say, and the last one would not fit.
void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QFontMetrics metrics = fontMetrics();
  const QStringList lines = text().split('\n');
  const int height = static_cast<int>(lines.size()) * metrics.lineSpacing();
  QRect place = style()->alignedRect(layoutDirection(), alignment(), {width(), height}, rect());
  place.setHeight(metrics.lineSpacing());
  for (const QString& line : lines) {
    style()->drawItemText(&painter, place, static_cast<int>(alignment()) | Qt::TextSingleLine,
                          palette(), isEnabled(), metrics.elidedText(line, Qt::ElideRight, width()),
                          foregroundRole());
    place.translate(0, metrics.lineSpacing());
  }
}

}  // namespace vesmora
