// The map's widget: what is handed on as input, and the frame it keeps.
#include "view/qt/map_surface.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <memory>
#include <vector>

namespace vesmora {
namespace {

using testing::ElementsAre;

struct PaintCounter : QObject {
  int paints = 0;

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
};

class MapSurfaceTest : public testing::Test {
 protected:
  MapSurfaceTest() {
    surface.resize(60, 40);
    view.area = {60, 40, 0, 0, 0};
    view.fixedGrid = true;
    view.gridSize = 25;
  }

  void Mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, QPointF(3.25, 4.5), QPointF(103, 104), button, held, Qt::NoModifier);
    QApplication::sendEvent(&surface, &event);
  }
  void Draw() { surface.Draw({*document, *selection, view, show, tool}); }
  QImage Shown(const QRect& part) {
    QImage picture(surface.size(), QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    surface.render(&picture, part.topLeft(), part, QWidget::RenderFlags());
    return picture;
  }

  std::unique_ptr<MapDocument> document = std::make_unique<MapDocument>();
  std::unique_ptr<Selection> selection = std::make_unique<Selection>();
  ViewTransform view;
  ShowOptions show;
  ToolDrawing tool;
  MapSurface surface{nullptr};
};

TEST_F(MapSurfaceTest, HandsOnWhatTheMouseDoes) {
  std::vector<std::string> log;
  const auto note = [&log](const char* what) {
    return [&log, what](const MouseInput& input) {
      EXPECT_TRUE(input.x == 3.25f && input.y == 4.5f) << "within the map, fractions kept";
      log.push_back(what + std::to_string(static_cast<int>(input.button)) +
                    (input.leftIsUp ? "" : " left") + (input.rightIsUp ? "" : " right"));
    };
  };
  QObject::connect(&surface, &MapSurface::Pressed, &surface, note("press "));
  QObject::connect(&surface, &MapSurface::Moved, &surface, note("move "));
  QObject::connect(&surface, &MapSurface::Released, &surface, note("release "));
  QObject::connect(&surface, &MapSurface::WheelTurned, &surface,
                   [&](int delta) { log.push_back("wheel " + std::to_string(delta)); });
  QObject::connect(&surface, &MapSurface::PointerLeft, &surface, [&] { log.emplace_back("left"); });

  Mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
  Mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
  Mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
  Mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton);
  Mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton | Qt::RightButton);
  for (const QPoint delta : {QPoint(0, 120), QPoint(33, -15)}) {
    QWheelEvent wheel(QPointF(1, 1), QPointF(1, 1), QPoint(), delta, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    wheel.ignore();
    QApplication::sendEvent(&surface, &wheel);
    EXPECT_TRUE(wheel.isAccepted());
  }
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&surface, &leave);

  const auto button = [](MouseButton which) { return std::to_string(static_cast<int>(which)); };
  EXPECT_THAT(log, ElementsAre("move " + button(MouseButton::kNone),
                               "press " + button(MouseButton::kLeft) + " left",
                               "move " + button(MouseButton::kNone) + " left right",
                               "release " + button(MouseButton::kRight) + " left",
                               "press " + button(MouseButton::kOther) + " right", "wheel 120",
                               "wheel -15", "left"));
  EXPECT_TRUE(surface.hasMouseTracking());
  EXPECT_EQ(surface.contextMenuPolicy(), Qt::PreventContextMenu);
  EXPECT_EQ(surface.accessibleName(), "Map");
}

TEST_F(MapSurfaceTest, KeepsItsFrameAtTheSizeOfTheWindow) {
  const QRgb ground = Shown(surface.rect()).pixel(30, 30);
  for (const QPoint corner : {QPoint(0, 0), QPoint(59, 39)}) {
    EXPECT_EQ(Shown(surface.rect()).pixel(corner), ground) << "before the first map";
  }
  Draw();
  const QImage whole = Shown(surface.rect());
  EXPECT_EQ(whole.pixel(25, 30), qRgb(75, 75, 75));
  EXPECT_EQ(whole.pixel(30, 0), qRgb(100, 100, 100));
  EXPECT_EQ(whole.pixel(30, 30), ground);

  view.gridSize = 50;  // what is uncovered shows the frame, and no more than was uncovered
  const QImage part = Shown({20, 10, 10, 20});
  EXPECT_EQ(part.copy(20, 10, 10, 20), whole.copy(20, 10, 10, 20));
  EXPECT_EQ(part.pixel(19, 20), qRgb(255, 0, 255));
  Draw();
  EXPECT_EQ(Shown(surface.rect()).pixel(25, 30), ground) << "drawn anew into the same frame";

  surface.resize(90, 70);
  view.area = {90, 70, 0, 0, 0};
  Draw();
  EXPECT_EQ(Shown(surface.rect()).pixel(80, 50), qRgb(75, 75, 75));
  EXPECT_EQ(Shown(surface.rect()).pixel(89, 69), ground);
  surface.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&surface));
  QCoreApplication::processEvents();
  PaintCounter counter;
  surface.installEventFilter(&counter);
  Draw();
  QCoreApplication::processEvents();
  EXPECT_EQ(counter.paints, 1) << "a new frame is shown without being asked for";
}

}  // namespace
}  // namespace vesmora
