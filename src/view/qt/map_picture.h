// A small picture of a map in a dialog.
#pragma once

#include <QWidget>
#include <memory>

#include "document/map_document.h"

namespace vesmora {

class MapPicture final : public QWidget {
 public:
  explicit MapPicture(QWidget* parent = nullptr);

  /// None: an empty picture.
  void Show(std::unique_ptr<MapDocument> map);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::unique_ptr<MapDocument> map_;
};

}  // namespace vesmora
