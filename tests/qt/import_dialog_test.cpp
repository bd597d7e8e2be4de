// The Import dialog under real keys: nothing is chosen that nobody chose.
#include "app/qt/import_dialog.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <filesystem>

#include "document/prefab_file.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

TEST(ImportDialogTest, OnlyAChosenPrefabIsImported) {
  EditorBench bench;
  const std::string folder = PrefabFolder(bench.editor.ports);
  const std::string latin = "b\xE4.pre";  // no UTF-8
  std::filesystem::create_directory(folder);
  AddTriangle(bench.document, {{{0, 0}, {10, 0}, {0, 10}}});
  for (const std::string& name : {std::string("a.pre"), latin}) {
    PutFile(folder + name, WritePrefab(bench.document));
  }
  Import dialog(bench.editor, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* list = dialog.findChild<QListWidget*>("fTiedosto");
  auto* import = dialog.findChild<QPushButton*>("cImport");
  const auto text = [&](const char* name) { return dialog.findChild<QLabel*>(name)->text(); };
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(text("lMaara2"), "0\n0\n0");
  EXPECT_FALSE(import->isEnabled());

  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(text("lName"), "a");
  EXPECT_EQ(text("lMaara2"), "1\n0\n0");
  EXPECT_TRUE(import->isEnabled());
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_TRUE(import->isEnabled());
  QTimer::singleShot(0, import, &QPushButton::click);
  EXPECT_EQ(dialog.Choose(), folder + latin);
}

}  // namespace
}  // namespace vesmora
