// The real window under real events: what reaches the file in the end.
#include "app/qt/ikkuna.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <filesystem>
#include <memory>

#include "support/map_workbench.h"

namespace vesmora {
namespace {

/// Presses OK on every message box that comes up, and remembers their texts.
class BoxPresser {
 public:
  BoxPresser() {
    timer_.setInterval(5);
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      texts.push_back(box->text().toStdString());
      box->accept();
    });
    timer_.start();
  }

  std::vector<std::string> texts;

 private:
  QTimer timer_;
};

class IkkunaTest : public ::testing::Test {
 protected:
  IkkunaTest() : path_(folder_ / "some.pmp") {
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder_.Path()));
    qputenv("TMPDIR", QByteArray::fromStdString(folder_.Path()));
  }
  ~IkkunaTest() override {
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("TMPDIR");
  }

  /// A window of 1000 x 700 on an empty map that lies in `path_`.
  void Start() {
    MapWorkbench bench;
    ResetToNewMap(bench.document);
    ASSERT_TRUE(WriteMap(bench.Context(), path_, false).Ok());
    window_ = std::make_unique<Ikkuna>();
    window_->resize(1000, 700);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    window_->Activate(path_);
    window_->activateWindow();  // the missing game's box was in front
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    map_ = window_->findChild<QWidget*>("Map");
    ASSERT_NE(map_, nullptr);
    // An even height, so that pixels lie on whole world units.
    window_->resize(window_->width(), window_->height() + map_->height() % 2);
  }

  /// Window position of a world point at 100 % about the origin.
  QPoint At(int x, int y) const {
    const QWidget* properties = window_->findChild<QWidget*>("Ppalkki");
    const QWidget* view = window_->findChild<QWidget*>("Pala");
    return {(map_->width() - properties->width()) / 2 + x,
            (map_->height() - view->height()) / 2 + y};
  }

  void Click(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseMove(map_, at);
    QTest::mouseClick(map_, button, {}, at);
  }

  void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseMove(map_, from);
    QTest::mousePress(map_, button, {}, from);
    for (int step = 1; step <= 4; ++step) QTest::mouseMove(map_, from + (to - from) * step / 4);
    QTest::mouseRelease(map_, button, {}, to);
  }

  void Wheel(int delta) {
    const QPointF at = map_->rect().center();
    QWheelEvent event(at, map_->mapToGlobal(at), {}, QPoint(0, delta), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(map_, &event);
  }

  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  void ChooseTool(int index) {
    auto* tool = window_->findChild<QAbstractButton*>(QString("OBvalinta%1").arg(index));
    QTest::mouseClick(tool, Qt::LeftButton, {}, QPoint(8, tool->height() / 2));
  }

  void Run(const char* command) { window_->findChild<QAction*>(command)->trigger(); }

  QString Zoom() { return window_->findChild<QComboBox*>("CBzoom")->currentText(); }

  /// Saves and reads the file back.
  const MapDocument& Saved() {
    Run("MenuSave");
    EXPECT_EQ(result_.Load(path_), LoadOutcome::kLoaded);
    return result_.document;
  }

  ScratchFolder folder_;
  std::string path_;
  BoxPresser boxes_;
  std::unique_ptr<Ikkuna> window_;
  QWidget* map_ = nullptr;
  MapWorkbench result_;
};

TEST_F(IkkunaTest, WhatIsDrawnReachesTheFile) {
  Start();
  ChooseTool(1);
  for (const QPoint corner : {At(0, 0), At(50, 0), At(0, 60)}) Click(corner);
  ChooseTool(2);
  Click(At(-100, 20));
  ChooseTool(3);
  Click(At(-150, -40));
  ChooseTool(4);
  Click(At(120, -30));
  ChooseTool(5);
  for (const QPoint place : {At(100, 100), At(150, 100)}) Click(place);
  for (const QPoint place : {At(100, 100), At(150, 100)}) Click(place);  // connects them

  const MapDocument& map = Saved();
  ASSERT_EQ(map.lastPolygon, 0);
  EXPECT_EQ(map.polygons[0].vertices[2].y, 60);
  ASSERT_EQ(map.lastSpawn, 0);
  EXPECT_EQ(map.spawns[0].x, -100 * 256);
  ASSERT_EQ(map.lastScenery, 0);
  EXPECT_EQ(map.sceneries[0].x, -149.5F);
  ASSERT_EQ(map.lastCollider, 0);
  EXPECT_EQ(map.colliders[0].y, -30);
  ASSERT_EQ(map.lastWaypoint, 1);
  EXPECT_EQ(map.waypoints[0].connectionCount, 1);
  EXPECT_EQ(map.waypoints[0].connections[0], 2);
}

TEST_F(IkkunaTest, ASelectionIsDraggedMovedByKeysAndUndone) {
  Start();
  ChooseTool(4);
  Click(At(0, 0));
  ChooseTool(0);
  Drag(At(-20, -20), At(20, 20));
  Drag(At(0, 0), At(40, 10));
  Key(Qt::Key_Right);
  Key(Qt::Key_Down, Qt::ControlModifier);
  const MapDocument& moved = Saved();
  EXPECT_EQ(moved.colliders[0].x, 41);
  EXPECT_EQ(moved.colliders[0].y, 20);
  Run("MenuUndo");
  EXPECT_EQ(Saved().colliders[0].x, 0);
}

TEST_F(IkkunaTest, ModifierKeysChangeTheStep) {
  Start();
  ChooseTool(4);
  Click(At(0, 0));
  ChooseTool(0);
  Drag(At(-20, -20), At(20, 20));
  QWidget* focused = QApplication::focusWidget();
  QTest::keyPress(focused, Qt::Key_Control);
  Key(Qt::Key_Left);
  QTest::keyPress(focused, Qt::Key_Shift);
  Key(Qt::Key_Up);
  QTest::keyRelease(focused, Qt::Key_Control);
  QTest::keyRelease(focused, Qt::Key_Shift);
  Key(Qt::Key_Left);
  EXPECT_EQ(Saved().colliders[0].x, -11);
  EXPECT_EQ(Saved().colliders[0].y, -50);
}

TEST_F(IkkunaTest, WheelAndKeypadZoomAndTheViewPans) {
  Start();
  Wheel(120);
  EXPECT_EQ(Zoom(), "200%");
  Wheel(240);
  EXPECT_EQ(Zoom(), "200%");
  Key(Qt::Key_Plus);
  EXPECT_EQ(Zoom(), "200%");
  Key(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(Zoom(), "400%");
  Key(Qt::Key_Minus, Qt::KeypadModifier);
  Wheel(-120);
  EXPECT_EQ(Zoom(), "100%");
  // The map follows the pointer: what was 30 to the left now lies under the middle.
  Drag(At(0, 0), At(30, 0), Qt::RightButton);
  ChooseTool(4);
  Click(At(0, 0));
  EXPECT_EQ(Saved().colliders[0].x, -30);
}

TEST_F(IkkunaTest, EveryControlGivesTheKeyboardBackToTheMap) {
  Start();
  QWidget* rest = window_->findChild<QWidget*>("Pala");
  for (const char* name : {"OBvalinta2", "OBvalinta0", "CBfixed", "CBnayta1", "CBnayta0"}) {
    QTest::mouseClick(window_->findChild<QWidget*>(name), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(QApplication::focusWidget(), rest) << name;
  }
  for (const char* name : {"CBzoom", "CBgrid"}) {
    auto* list = window_->findChild<QComboBox*>(name);
    list->setFocus();
    list->showPopup();
    list->hidePopup();
    EXPECT_EQ(QApplication::focusWidget(), rest) << name;
  }
}

TEST_F(IkkunaTest, TheMinimumHoldsAndThePanelsFollow) {
  Start();
  window_->resize(300, 200);
  QTest::qWait(1);
  const QWidget* properties = window_->findChild<QWidget*>("Ppalkki");
  const QWidget* view = window_->findChild<QWidget*>("Pala");
  EXPECT_EQ(window_->frameGeometry().width(), properties->width() + 648);
  EXPECT_EQ(properties->x(), map_->width() - properties->width());
  EXPECT_EQ(properties->height(), map_->height() + 2);
  EXPECT_EQ(view->y(), map_->height() - view->height());
  EXPECT_EQ(view->width(), map_->width() - properties->width() + 4);
}

TEST_F(IkkunaTest, LeavesNoUndoFilesButKeepsTheBackup) {
  Start();
  ChooseTool(4);
  Click(At(0, 0));
  Saved();
  window_->close();
  int backups = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path())) {
    const std::string name = entry.path().filename().string();
    EXPECT_FALSE(name.starts_with("VesmoraUndo")) << name;
    backups += name == "backup.pmp" ? 1 : 0;
  }
  EXPECT_EQ(backups, 1);
}

}  // namespace
}  // namespace vesmora
