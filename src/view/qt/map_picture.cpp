#include "view/qt/map_picture.h"

#include <QImage>
#include <QPainter>

#include "view/map_picture.h"
#include "view/qt/painter_canvas.h"

namespace vesmora {

MapPicture::MapPicture(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void MapPicture::Show(std::unique_ptr<MapDocument> map) {
  map_ = std::move(map);
  update();
}

void MapPicture::paintEvent(QPaintEvent* /*event*/) {
  QImage picture(size() * devicePixelRatioF(), QImage::Format_RGB32);
  picture.setDevicePixelRatio(devicePixelRatioF());
  PainterCanvas canvas(font(), kMapBackground);
  canvas.Begin(picture);
  canvas.Clear();
  if (map_) DrawPicture(*map_, width(), height(), canvas);
  canvas.End();
  QPainter(this).drawImage(0, 0, picture);
}

}  // namespace vesmora
