// The game that the real window starts, and its Import dialog under real events.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QScreen>
#include <QScrollBar>
#include <filesystem>
#include <fstream>

#include "app/qt/import_dialog.h"
#include "document/prefab_file.h"
#include "real_window.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

class IkkunaTest : public RealWindow {};

TEST_F(IkkunaTest, TheGameRunsAndTheWindowStepsAside) {
  const std::string game = folder / "Soldat.exe";
  std::ofstream(game) << "#!/bin/sh\n: >result\n";
  std::filesystem::permissions(game, std::filesystem::perms::owner_all);
  const std::array<QByteArray, 2> before = {qgetenv("PATH"), qgetenv("DISPLAY")};
  qputenv("PATH", QByteArray::fromStdString(folder.Path()));  // without Wine
  qunsetenv("DISPLAY");
  Run("MenuRunSoldat");
  EXPECT_TRUE(window->isMinimized());
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder / "result"); }));
  std::ofstream(game) << "MZ";
  Run("MenuRunSoldat");
  EXPECT_FALSE(window->isMinimized()) << "it could not be started";
  qputenv("PATH", before[0]);
  if (!before[1].isEmpty()) qputenv("DISPLAY", before[1]);
}

TEST(ImportDialogTest, OnlyAChosenPrefabIsImported) {
  Bench bench;
  const std::string folder = PrefabFolder(bench.editor.ports);
  const std::string latin = "b\xE4.PRE";  // no UTF-8
  std::filesystem::create_directory(folder);
  AddTriangle(bench.map, {{{0, 0}, {10, 0}, {0, 10}}});
  const std::string wide = "c" + std::string(80, 'W') + ".pre";
  for (const std::string& name : {std::string("a.pre"), latin, wide, std::string("readme.txt")}) {
    PutFile(folder + name, WritePrefab(bench.map));
  }
  PutFile(folder + "z.pre", FileBytes(DataPath("hostile/prefab-version_0.pre")));
  Import dialog(bench.editor, nullptr);
  EXPECT_TRUE(QRect({}, dialog.screen()->availableSize()).contains(QRect({}, dialog.size())));
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* list = dialog.findChild<QListWidget*>("fTiedosto");
  auto* import = dialog.findChild<QPushButton*>("cImport");
  const auto text = [&](const char* name) { return dialog.findChild<QLabel*>(name)->text(); };
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(text("lMaara") + " " + text("lMaara2"), "399\n255\n128 0\n0\n0");
  EXPECT_FALSE(import->isEnabled());
  for (int i = 0; i < 4; ++i) QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(text("lName") + " " + text("lMaara2"), "z Err\nErr\nErr");
  const auto picture = [&] {  // as it has been painted
    QCoreApplication::processEvents();
    const auto place = dialog.findChild<QWidget*>("pKuva")->geometry();
    return dialog.screen()
        ->grabWindow(dialog.winId(), place.x(), place.y(), place.width(), place.height())
        .toImage();
  };
  const QImage blank = picture();
  EXPECT_FALSE(import->isEnabled());
  EXPECT_EQ(blank.pixelColor(0, 0), kMapBackground);
  EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0) << "a long name is cut";
  EXPECT_EQ(list->item(2)->toolTip().toStdString(), wide);
  for (int i = 0; i < 3; ++i) QTest::keyClick(list, Qt::Key_Up);
  EXPECT_EQ(text("lName") + " " + text("lMaara2"), "a 1\n0\n0");
  EXPECT_NE(picture(), blank);
  // To an assistive program, too, a prefab is chosen by its item, and each value says what it is.
  auto* reader = QAccessible::queryAccessibleInterface(list);
  for (const int row : {3, 0, 0}) {  // the last time it is the chosen one
    reader->child(row)->actionInterface()->doAction("Toggle");
    QCoreApplication::processEvents();
    EXPECT_EQ(list->currentRow(), row);
    EXPECT_EQ(import->isEnabled(), row == 0);
    EXPECT_EQ(list->selectedItems(), QList{list->item(row)});
  }
  QStringList captions;
  for (const auto* label : dialog.findChildren<QLabel*>(QString())) captions << label->text();
  for (const char* caption : {"Name:", "Author:", "Left", "Prefab"}) {
    EXPECT_TRUE(captions.contains(caption)) << caption;
  }
  for (const char* name : {"lHakemisto", "lName", "lAuthor", "lMaara", "lMaara2"}) {
    EXPECT_NE(dialog.findChild<QLabel*>(name)->accessibleDescription(), "") << name;
  }
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_TRUE(import->isEnabled());
  QTimer::singleShot(0, dialog.findChild<QPushButton*>("cPeruuta"), &QPushButton::click);
  EXPECT_EQ(dialog.Choose(), "");
  QTimer::singleShot(0, import, &QPushButton::click);
  EXPECT_EQ(dialog.Choose(), folder + latin);
  QTimer::singleShot(0, list, [&] {
    const QPoint first = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
  });
  EXPECT_EQ(dialog.Choose(), folder + "a.pre");
}

}  // namespace
}  // namespace vesmora
