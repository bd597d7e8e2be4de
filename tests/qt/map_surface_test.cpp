// The map's widget: what is handed on as input, and the frame it keeps.
#include "view/qt/map_surface.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <vector>

namespace vesmora {
namespace {

using testing::ElementsAre;

class MapSurfaceTest : public testing::Test {
 protected:
  MapSurfaceTest() { surface.resize(60, 40); }

  void Mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, QPointF(3.25, 4.5), QPointF(103, 104), button, held, Qt::NoModifier);
    QApplication::sendEvent(&surface, &event);
  }
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

}  // namespace
}  // namespace vesmora
