// Menus, shortcuts, dropped files and the strips of the real window.
#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <fstream>

#include "app/commands.h"
#include "app/qt/about.h"
#include "real_window.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

class IkkunaCommandsTest : public RealWindow {
 protected:
  /// With modifiers that are held before and after.
  static void PressHeld(Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::simulateEvent(QApplication::focusWidget(), true, key, held, QString(), false);
  }
  QString Hint() const { return Find<QLabel>("Lvihje")->text(); }
  /// Drops files, with Shift as for a move, and tells what the source hears of it.
  Qt::DropAction Drop(const QList<QUrl>& urls, Qt::DropActions possible) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({9, 9}, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
    enter.ignore();
    QApplication::sendEvent(window.get(), &enter);
    if (!enter.isAccepted()) return Qt::TargetMoveAction;
    QDropEvent drop({9, 9}, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(window.get(), &drop);
    Settle();
    return drop.dropAction();
  }
  std::string MapName() const {
    return Find<QLabel>("Lkartta1")->text().section('\n', 0, 0).toStdString();
  }
};

TEST_F(IkkunaCommandsTest, MenusShowTheTableOfCommandsAsItIsNow) {
  const QList<QAction*> menus = window->menuBar()->actions();
  ASSERT_EQ(menus.size(), 4);
  QStringList names;
  for (const QAction* item : menus[0]->menu()->actions()) {
    names << (item->isSeparator() ? "-" : item->objectName());
  }
  EXPECT_EQ(names.join(' '),
            "MenuNew MenuOpen MenuRecover MenuSave MenuSaveAs - MenuImport MenuExport - "
            "File1 File2 File3 File4 File5 - MenuExit");
  for (const Command& command : Commands()) {
    const auto* item = Find<QAction>(QString::fromUtf8(command.name.data()));
    const QAction* menu = menus[static_cast<int>(command.menu)];
    EXPECT_TRUE(menu->menu()->actions().contains(item)) << command.name;
    EXPECT_EQ(item->text().toStdString(), command.caption);
    EXPECT_EQ(QKeySequence::listToString(item->shortcuts()).toStdString(), command.shortcut);
    EXPECT_EQ(item->isEnabled(), command.isEnabled(editor)) << command.name;
  }
  EXPECT_FALSE(Find<QAction>("File1")->isVisible());
  Place(4, 0, 0);
  EXPECT_EQ(Find<QAction>("MenuUndo")->text(), "&Undo Collider");
  EXPECT_FALSE(Find<QAction>("MenuCopy")->isEnabled());
  Choose(0);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(Find<QAction>("MenuPaste")->isEnabled());
  EXPECT_EQ(Hint(), "Copied 1 object");
  const std::string other = folder / "R&D\xFF.pmp";  // no text
  EXPECT_TRUE(Write(other).Ok());
  const QByteArray address = QByteArray::fromStdString(other).toPercentEncoding("/");
  Drop({QUrl::fromEncoded("file://" + address)}, Qt::CopyAction);
  EXPECT_EQ(Find<QAction>("File1")->text().toStdString(), "&1 " + folder / "R&&D\uFFFD.pmp");
  EXPECT_TRUE(Find<QAction>("File1")->isVisible());
  EXPECT_FALSE(Find<QAction>("File2")->isVisible()) << "the command line's file is no recent one";
  Key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(MapName(), "Name: ");
  Run("File1");
  EXPECT_EQ(MapName(), "Name: R&D\uFFFD");
}

TEST_F(IkkunaCommandsTest, KeysOfAShortcutDoNotStickAndOthersAreFollowedIntoMenus) {
  const auto isAsked = [](QDialog& dialog) {
    EXPECT_TRUE(dialog.inherits("QFileDialog"));
    dialog.reject();
  };
  Choose(5);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  EXPECT_EQ(Hint(), "[Ctrl] Click to add a waypoint");
  person.answers = {isAsked};
  PressHeld(Qt::Key_O,
            Qt::ControlModifier);  // let go inside the dialog: the window never hears of it
  ComeToFront();
  EXPECT_EQ(Hint(), "Click to add a waypoint");
  for (const int x : {0, 60}) Place(5, x, 0);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  person.answers = {isAsked};
  PressHeld(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  ComeToFront();
  EXPECT_EQ(Hint(), "Click to add a waypoint");
  EXPECT_EQ(Saved().waypoints[0].connectionCount, 0);

  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  person.answers = {isAsked};
  Run("MenuOpen");  // by the mouse
  ComeToFront();
  EXPECT_EQ(Hint().left(8), "[Shift] ") << "still held";
  auto* menu = window->menuBar()->actions().front()->menu();
  menu->popup({0, 0});
  QTest::keyRelease(menu, Qt::Key_Shift);
  EXPECT_EQ(Hint().left(5), "Click");
  QTest::keyPress(menu, Qt::Key_Shift);
  menu->close();
  ComeToFront();
  EXPECT_EQ(Hint().left(8), "[Shift] ");
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Shift);
  // The step is that of the press itself, whatever was held before.
  Place(0, 60, 0);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  Key(Qt::Key_Right);
  EXPECT_EQ(Saved().waypoints[1].x, 61 * 256);
}

TEST_F(IkkunaCommandsTest, TheMapTakesTheKeyboardAndEscape) {
  Choose(1);
  Find("CBzoom")->setFocus();
  for (const int x : {0, 50}) Place(1, x, 0);
  EXPECT_EQ(QApplication::focusWidget(), Find("Pala"));
  EXPECT_EQ(Hint(), "Click the third corner");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Hint(), "Click the first corner");
  Choose(0);
  auto* size = Find<QComboBox>("CBcollider");
  Place(4, 0, 0);
  size->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), "33");
  EXPECT_EQ(Hint(), "Enter applies");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(Hint(), "Click to add a collider") << "it no longer does";
  size->setFocus();
  size->lineEdit()->selectAll();
  QTest::keyClicks(QApplication::focusWidget(), "1");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(size->currentText(), "12") << "refused";
}

TEST_F(IkkunaCommandsTest, TheStripChoosesZoomAndGridAndShowsThePointer) {
  const auto choose = [&](const char* name, int row) {
    auto* list = Find<QComboBox>(name);
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Home);
    for (int i = 0; i < row; ++i) QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    ComeToFront();
    EXPECT_EQ(window->focusWidget(), Find("Pala"));
  };
  const auto* place = Find<QLabel>("Lsijainti");
  QTest::mouseMove(surface, At(20, -30));
  EXPECT_TRUE(place->text().startsWith("20.")) << place->text().toStdString();
  choose("CBzoom", 1);  // 200 %
  EXPECT_EQ(place->text(), "") << "it is elsewhere now";
  QTest::mouseMove(surface, At(20, -31));
  EXPECT_TRUE(place->text().startsWith("10.")) << place->text().toStdString();
  QTest::mouseMove(surface, QPoint(surface->width() - 5, 300));
  EXPECT_EQ(place->text(), "") << "over a panel";
  choose("CBgrid", 2);  // 50
  Place(4, 60, -30);    // of the window: 30, -15 on the map
  EXPECT_EQ(Saved().colliders[0].x, 50);
  EXPECT_EQ(map.colliders[0].y, 0);
  const QImage onMap = surface->grab().toImage();
  QTest::mouseClick(Find("CBfixed"), Qt::LeftButton, {}, {8, 8});
  EXPECT_NE(surface->grab().toImage(), onMap);
  choose("CBzoom", 4);  // 25 %: 50 is not too dense
  choose("CBgrid", 5);  // 5 is
  EXPECT_EQ(Find<QComboBox>("CBgrid")->currentText(), "25");
}

TEST_F(IkkunaCommandsTest, WhatIsNoTextExplainsItself) {
  for (const auto& [panel, name] :
       {std::pair("Map", "Map"), {"Ppalkki", "Properties"}, {"Pala", "View"}, {"Pyla", "Tools"}}) {
    EXPECT_EQ(Find(panel)->accessibleName(), name);
  }
  for (const char* name : {"OBvalinta0", "OBvalinta5", "CBzoom", "CBgrid", "CBfixed", "CBtausta1",
                           "CBtausta2", "CBnayta6", "CBverticevari", "CBtexEiKorjaus",
                           "CBverticeLapi", "CBscenery2", "OBbotNayta1", "CBbotValinta4"}) {
    EXPECT_NE(Find(name)->toolTip(), "") << name;
  }
  for (const char* name : {"Lvihje", "Lsijainti", "lAuthor", "CBtausta1"}) {
    EXPECT_NE(Find(name)->accessibleDescription(), "") << name;
  }
}

TEST_F(IkkunaCommandsTest, AuthorAndAboutOpenTheirDialogs) {
  person.answers = {
      [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Map properties");
        dialog.findChild<QLineEdit*>()->setText("Z\u00EB");
        dialog.accept();
      },
      [](QDialog& dialog) {
        EXPECT_TRUE(dialog.inherits("vesmora::About"));
        EXPECT_EQ(dialog.windowTitle(), "About Vesmora");
        QStringList texts;
        for (const auto* label : dialog.findChildren<QLabel*>()) {
          texts << label->text();
          EXPECT_EQ(label->alignment(), Qt::AlignCenter);
          EXPECT_EQ(label->openExternalLinks(), label->text().contains("href"));
        }
        EXPECT_TRUE(texts.contains("Version " VESMORA_VERSION "\nMap editor for Soldat 1.0.5b"));
        EXPECT_EQ(texts.filter("href").size(), 2);
        QTest::keyClick(&dialog, Qt::Key_Return);
      }};
  QTest::mouseClick(Find("CBauthor"), Qt::LeftButton);
  EXPECT_EQ(Find<QLabel>("lAuthor")->text(), "Z\u00EB");
  Run("MenuAbout");
}

}  // namespace
}  // namespace vesmora
