// A label of one size: what is longer is cut with "..." and told whole by a tooltip.
#pragma once

#include <QLabel>

namespace vesmora {

/// The width in pixels of `text` with its digits as wide as the widest, so that it holds any number
/// of as many digits. The widest line counts.
int WidestWidth(const QFontMetrics& metrics, const QString& text);

/// A tooltip that shows `text` as it is, markup and all.
QString PlainTip(const QString& text);

class ElidedLabel final : public QLabel {
  Q_OBJECT

 public:
  /// At least as large as `widest` in the label's font, whatever is shown.
  explicit ElidedLabel(const QString& name, const QString& widest);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool IsCut() const;

  QString widest_;
};

}  // namespace vesmora
