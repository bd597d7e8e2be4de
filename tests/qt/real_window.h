// The real window under real events, on folders of its own.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <array>
#include <memory>

#include "app/qt/ikkuna.h"
#include "person.h"
#include "support/bench.h"

namespace vesmora {

class RealWindow : public testing::Test, protected Bench {
 protected:
  /// On an empty map that lies in `path`.
  RealWindow() {
    for (const char* name : kFolders) qputenv(name, QByteArray::fromStdString(folder.Path()));
    ResetToNewMap(map);
    EXPECT_TRUE(Write(path).Ok());
    std::filesystem::remove_all(Temp(""));  // the window has one of its own
    Start();
  }
  ~RealWindow() override {
    window.reset();
    QApplication::setFont(font);
    for (const char* name : kFolders) qunsetenv(name);
  }

  void Start() {
    window = std::make_unique<Ikkuna>();
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->Activate(path);
    ComeToFront();
    surface = Find("Map");
    Settle();
  }
  /// After a dialog: here no window manager does it.
  void ComeToFront() {
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  static void Settle() {
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
  }
  void Resize(int width, int height) {
    window->resize(width, height);
    Settle();
  }
  template <typename Widget = QWidget>
  Widget* Find(const QString& name) const {
    auto* found = window->findChild<Widget*>(name);
    if (found == nullptr) ADD_FAILURE() << "no " << name.toStdString();
    return found;
  }
  /// Window position of a world point at 100 % about the origin.
  QPoint At(int x, int y) const {
    return {(surface->width() - Find("Ppalkki")->width()) / 2 + x,
            (surface->height() - Find("Pala")->height()) / 2 + y};
  }
  void Choose(int tool) {
    auto* button = Find<QAbstractButton>(QString("OBvalinta%1").arg(tool));
    if (!button->isChecked()) QTest::mouseClick(button, Qt::LeftButton, {}, {8, 8});
  }
  void Place(int tool, int x, int y) {
    Choose(tool);
    Drag(At(x, y), At(x, y));
  }
  void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseMove(surface, from);
    QTest::mousePress(surface, button, {}, from);
    for (int step = 1; from != to && step <= 4; ++step) {
      QTest::mouseMove(surface, from + (to - from) * step / 4);
    }
    QTest::mouseRelease(surface, button, {}, to);
  }
  void Wheel(int delta) {
    const QPointF at = surface->rect().center();
    QWheelEvent event(at, surface->mapToGlobal(at), {}, QPoint(0, delta), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(surface, &event);
  }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  void Run(const char* command) { Find<QAction>(command)->trigger(); }
  /// Saves and reads the file back.
  const MapDocument& Saved() {
    Run("MenuSave");
    EXPECT_EQ(Load(path), LoadOutcome::kLoaded);
    return map;
  }

  static constexpr std::array kFolders = {"XDG_CONFIG_HOME", "TMPDIR", "VESMORA_GAME"};
  const std::string path = folder / "some.pmp";
  const QFont font = QApplication::font();
  Person person{Person::Manner::kPatient};
  std::unique_ptr<Ikkuna> window;
  QWidget* surface = nullptr;
};

}  // namespace vesmora
