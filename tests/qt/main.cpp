// Runs the tests of the Qt part in one application, named as the program is.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vesmora");
  return RUN_ALL_TESTS();
}
