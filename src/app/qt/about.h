// The About box.
#pragma once

#include <QDialog>

namespace vesmora {

class About final : public QDialog {
  Q_OBJECT

 public:
  explicit About(QWidget* parent);
};

}  // namespace vesmora
