// A frame whose caption can be highlighted: what the next object gets stands in it.
#pragma once

#include <QGroupBox>

namespace vesmora {

class CaptionFrame final : public QGroupBox {
  Q_OBJECT

 public:
  CaptionFrame(const QString& caption, const QString& name);

  void Highlight(bool isHighlighted);

 protected:
  void initStyleOption(QStyleOptionGroupBox* option) const override;

 private:
  bool isHighlighted_ = false;
};

}  // namespace vesmora
