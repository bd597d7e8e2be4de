// The real window and its Import dialog under real events: what reaches the file in the end.
#include "app/qt/ikkuna.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>

#include "app/qt/import_dialog.h"
#include "document/prefab_file.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

class IkkunaTest : public testing::Test, protected Bench {
 protected:
  /// A window of 1000 x 700 on an empty map that lies in `path_`.
  IkkunaTest() {
    for (const char* name : kFolders) qputenv(name, QByteArray::fromStdString(folder.Path()));
    QObject::connect(&boxCloser_, &QTimer::timeout, [] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box != nullptr) box->accept();
    });
    boxCloser_.start(5);
    ResetToNewMap(map);
    EXPECT_TRUE(Write(path_).Ok());
    window_ = std::make_unique<Ikkuna>();
    window_->resize(1000, 700);
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    window_->Activate(path_);
    window_->activateWindow();  // the missing game's box was in front
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    map_ = Find("Map");
    // An even height, so that pixels lie on whole world units.
    window_->resize(window_->width(), window_->height() + map_->height() % 2);
  }
  ~IkkunaTest() override {
    for (const char* name : kFolders) qunsetenv(name);
  }

  QWidget* Find(const char* name) { return window_->findChild<QWidget*>(name); }
  /// Window position of a world point at 100 % about the origin.
  QPoint At(int x, int y) {
    return {(map_->width() - Find("Ppalkki")->width()) / 2 + x,
            (map_->height() - Find("Pala")->height()) / 2 + y};
  }
  void Place(int tool, int x, int y) {
    auto* button = window_->findChild<QAbstractButton*>(QString("OBvalinta%1").arg(tool));
    if (!button->isChecked()) QTest::mouseClick(button, Qt::LeftButton, {}, {8, 8});
    Drag(At(x, y), At(x, y));
  }
  void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseMove(map_, from);
    QTest::mousePress(map_, button, {}, from);
    for (int step = 1; from != to && step <= 4; ++step) {
      QTest::mouseMove(map_, from + (to - from) * step / 4);
    }
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
  void Run(const char* command) { window_->findChild<QAction*>(command)->trigger(); }
  /// Saves and reads the file back.
  const MapDocument& Saved() {
    Run("MenuSave");
    EXPECT_EQ(Load(path_), LoadOutcome::kLoaded);
    return map;
  }

  static constexpr std::array kFolders = {"XDG_CONFIG_HOME", "TMPDIR", "VESMORA_GAME"};
  const std::string path_ = folder / "some.pmp";
  QTimer boxCloser_;  // presses OK
  std::unique_ptr<Ikkuna> window_;
  QWidget* map_ = nullptr;
};

TEST_F(IkkunaTest, WhatIsDrawnReachesTheFile) {
  for (const auto& [tool, x, y] : {std::tuple(1, 0, 0),
                                   {1, 50, 0},
                                   {1, 0, 60},
                                   {2, -100, 20},
                                   {3, -150, -40},
                                   {4, 120, -30},
                                   {5, 100, 100},
                                   {5, 150, 100},
                                   {5, 100, 100},
                                   {5, 150, 100}}) {  // and connects them
    Place(tool, x, y);
  }
  Saved();
  EXPECT_EQ(map.polygons[0].vertices[2].y, 60);
  EXPECT_EQ(map.spawns[0].x, -100 * 256);
  EXPECT_EQ(map.sceneries[0].x, -149.5F);
  EXPECT_EQ(map.colliders[0].y, -30);
  EXPECT_EQ(map.waypoints[0].connections[0], 2);
  window_->close();
  int backups = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
    const std::string name = entry.path().filename().string();
    EXPECT_FALSE(name.starts_with("VesmoraUndo")) << name;
    backups += name == "backup.pmp" ? 1 : 0;
  }
  EXPECT_EQ(backups, 1);
}

TEST_F(IkkunaTest, ASelectionIsDraggedMovedByKeysAndUndone) {
  const QImage empty = map_->grab().toImage();
  Place(4, 0, 0);
  EXPECT_EQ(map_->cursor().shape(), Qt::CrossCursor);
  Place(0, 200, 200);
  EXPECT_EQ(map_->cursor().shape(), Qt::ArrowCursor);
  EXPECT_NE(map_->grab().toImage(), empty);
  Drag(At(-20, -20), At(20, 20));
  Drag(At(0, 0), At(40, 10));
  EXPECT_EQ(map_->cursor().shape(), Qt::SizeAllCursor);
  Key(Qt::Key_Left, Qt::ControlModifier);
  Key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
  Key(Qt::Key_Left);
  EXPECT_EQ(Saved().colliders[0].x, 29);
  EXPECT_EQ(map.colliders[0].y, -40);
  Run("MenuUndo");
  EXPECT_EQ(Saved().colliders[0].x, 0);
}

TEST_F(IkkunaTest, TheViewZoomsAndPansAndEveryControlGivesTheKeyboardBack) {
  const auto zoom = [this] { return window_->findChild<QComboBox*>("CBzoom")->currentText(); };
  for (const int delta : {40, 80}) Wheel(delta);
  Key(Qt::Key_Plus);
  EXPECT_EQ(zoom(), "200%");
  Key(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(zoom(), "400%");
  Key(Qt::Key_Minus, Qt::KeypadModifier);
  Wheel(-120);
  EXPECT_EQ(zoom(), "100%");
  // The map follows the pointer: what was 30 to the left now lies under the middle.
  Drag(At(0, 0), At(30, 20), Qt::RightButton);
  Place(4, 0, 0);
  EXPECT_EQ(Saved().colliders[0].x, -30);
  EXPECT_EQ(map.colliders[0].y, -20);

  QWidget* rest = Find("Pala");
  for (const char* name : {"OBvalinta0", "CBfixed", "CBnayta1", "CBzoom"}) {
    auto* list = window_->findChild<QComboBox*>(name);
    if (list == nullptr) QTest::mouseClick(Find(name), Qt::LeftButton, {}, {8, 8});
    if (list != nullptr) list->setFocus(), list->showPopup(), list->hidePopup();
    EXPECT_EQ(QApplication::focusWidget(), rest) << name;
  }
}

TEST_F(IkkunaTest, TheGameRunsAndTheWindowStepsAside) {
  const std::string game = folder / "Soldat.exe";
  std::ofstream(game) << "#!/bin/sh\n: >result\n";
  std::filesystem::permissions(game, std::filesystem::perms::owner_all);
  const std::array<QByteArray, 2> before = {qgetenv("PATH"), qgetenv("DISPLAY")};
  qputenv("PATH", QByteArray::fromStdString(folder.Path()));  // without Wine
  qunsetenv("DISPLAY");
  Run("MenuRunSoldat");
  EXPECT_TRUE(window_->isMinimized());
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder / "result"); }));
  std::ofstream(game) << "MZ";
  Run("MenuRunSoldat");
  EXPECT_FALSE(window_->isMinimized()) << "it could not be started";
  qputenv("PATH", before[0]);
  if (!before[1].isEmpty()) qputenv("DISPLAY", before[1]);
}

TEST_F(IkkunaTest, ABoxOpensOverWhatIsUpToDate) {
  Place(4, 0, 0);
  std::filesystem::remove(path_);
  std::filesystem::create_directory(path_);
  std::ofstream(path_ + "/inside") << "keeps the map from being saved";
  QTest::mouseMove(Find("Pala"));  // leaving the map would show it, too
  bool isShown = false;
  boxCloser_.stop();
  QTimer::singleShot(0, window_.get(), [&] {
    const auto* edit = window_->findChild<QAbstractButton*>("OBvalinta0");
    isShown = QApplication::activeModalWidget() != nullptr && edit->isChecked();
    boxCloser_.start();
  });
  Run("MenuSave");  // chooses Edit first
  EXPECT_TRUE(isShown);
}

TEST(ImportDialogTest, OnlyAChosenPrefabIsImported) {
  EditorBench bench;
  const std::string folder = PrefabFolder(bench.editor.ports);
  const std::string latin = "b\xE4.PRE";  // no UTF-8
  std::filesystem::create_directory(folder);
  AddTriangle(bench.map, {{{0, 0}, {10, 0}, {0, 10}}});
  for (const std::string& name : {std::string("a.pre"), latin, std::string("readme.txt")}) {
    PutFile(folder + name, WritePrefab(bench.map));
  }
  PutFile(folder + "z.pre", FileBytes(DataPath("hostile/prefab-version_0.pre")));
  Import dialog(bench.editor, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* list = dialog.findChild<QListWidget*>("fTiedosto");
  auto* import = dialog.findChild<QPushButton*>("cImport");
  const auto text = [&](const char* name) { return dialog.findChild<QLabel*>(name)->text(); };
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(text("lMaara") + " " + text("lMaara2"), "399\n255\n128 0\n0\n0");
  EXPECT_FALSE(import->isEnabled());
  for (int i = 0; i < 3; ++i) QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(text("lName") + " " + text("lMaara2"), "z Err\nErr\nErr");
  const QImage blank = dialog.findChild<QWidget*>("pKuva")->grab().toImage();
  EXPECT_FALSE(import->isEnabled());
  EXPECT_EQ(blank.pixelColor(0, 0), kMapBackground);
  for (int i = 0; i < 2; ++i) QTest::keyClick(list, Qt::Key_Up);
  EXPECT_EQ(text("lName") + " " + text("lMaara2"), "a 1\n0\n0");
  EXPECT_NE(dialog.findChild<QWidget*>("pKuva")->grab().toImage(), blank);
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_TRUE(import->isEnabled());
  QTimer::singleShot(0, import, &QPushButton::click);
  EXPECT_EQ(dialog.Choose(), folder + latin);
}

}  // namespace
}  // namespace vesmora
