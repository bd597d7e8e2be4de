// The real boxes and file dialogs: what they show, and what becomes of the answers.
#include "platform/qt/qt_dialogs.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <filesystem>
#include <fstream>

#include "person.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class QtDialogsTest : public testing::Test {
 protected:
  using Answer = Person::Answer;

  QtDialogsTest() { parent.show(); }

  /// Types a name into a file dialog and accepts it.
  static Answer Name(const std::string& name) {
    return [name](QDialog& dialog) {
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
      dialog.findChild<QDialogButtonBox*>()->buttons().first()->click();
    };
  }
  Answer Press(QMessageBox::StandardButton button) { return person.Press(button); }

  const ScratchFolder folder;
  QWidget parent;
  QtDialogs dialogs{&parent};
  Person person{Person::Manner::kStrict};
  std::deque<Answer>& answers = person.answers;
  std::vector<std::string>& told = person.told;
};

TEST_F(QtDialogsTest, BoxesShowTheirTextWholeAndAsItIs) {
  // The toolkit would break the second line.
  const std::string text =
      "File '<b>a</b>' is damaged.\n"
      "What is this long has often come as a line of its own and is better left as one.\nShort.";
  const std::array icons = {QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Warning,
                            QMessageBox::Question, QMessageBox::Information};
  for (std::size_t i = 0; i < icons.size(); ++i) {
    answers = {[&](QDialog& dialog) {
      const auto& box = dynamic_cast<QMessageBox&>(dialog);
      const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
      EXPECT_EQ(box.icon(), icons[i]);
      EXPECT_EQ(box.windowTitle(), i == 0 ? "Vesmora" : "Run error");
      EXPECT_EQ(label->textFormat(), Qt::PlainText);
      const QSize needed = label->fontMetrics().size(0, label->text());
      EXPECT_GE(label->width(), needed.width());
      EXPECT_GE(label->height(), needed.height());
      const QPoint aside = box.geometry().center() - parent.geometry().center();
      EXPECT_LE(std::max(std::abs(aside.x()), std::abs(aside.y())), 8) << "but for frames";
      Press(QMessageBox::Ok)(dialog);
    }};
    dialogs.Show(
        {.text = text, .title = i == 0 ? "" : "Run error", .icon = static_cast<MessageIcon>(i)});
  }
  parent.move(1500, 1100);
  std::string endless = "Word";
  for (int i = 0; i < 100; ++i) endless += " after word";
  answers = {[&](QDialog& box) {
    EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
    EXPECT_GT(box.width(), box.screen()->availableSize().width() * 3 / 4) << "as wide as it may be";
    Press(QMessageBox::Ok)(box);
  }};
  dialogs.Show({endless, "", MessageIcon::kCritical});
  const Message question{"Sure?", "Warning", MessageIcon::kQuestion};
  answers = {Press(QMessageBox::Ok), Press(QMessageBox::Cancel), Person::Cancel};
  EXPECT_TRUE(dialogs.Ask(question));
  EXPECT_FALSE(dialogs.Ask(question));
  EXPECT_FALSE(dialogs.Ask(question));
}

TEST_F(QtDialogsTest, ASavedNameGetsItsEndingAndNothingIsReplacedUnasked) {
  for (const char* name : {"Hollow v1.2.pmp", "there.pmp"}) std::ofstream(folder / name) << "x";
  const FileRequest request{.title = "Export",
                            .directory = folder.Path(),
                            .fileName = "ctf_",
                            .filter = {.description = "Soldat Map (*.pmp)", .pattern = "*.PMP"}};
  const auto save = [&](std::deque<Answer> script) {
    told.clear();
    answers = std::move(script);
    const std::string path = dialogs.ChooseFileToSave(request);
    return path.empty() ? path : std::filesystem::path(path).filename().string();
  };
  EXPECT_EQ(save({[&](QDialog& dialog) {
              EXPECT_EQ(dialog.windowTitle(), "Export");
              EXPECT_EQ(dialog.findChild<QDialogButtonBox*>()->buttons().first()->text(),
                        "&Export");
              EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "ctf_");
              Name("ctf_new")(dialog);
            }}),
            "ctf_new.pmp");
  EXPECT_EQ(save({Name("New v1.2")}), "New v1.2.pmp");
  EXPECT_EQ(save({Name("Loud.PMP")}), "Loud.PMP");
  EXPECT_EQ(save({Name("Hollow v1.2"), Press(QMessageBox::Cancel), Name("Hollow v1.2"),
                  Press(QMessageBox::Ok)}),
            "Hollow v1.2.pmp");
  EXPECT_THAT(told, testing::Each("Warning: File '" + folder / "Hollow v1.2.pmp" +
                                  "' already exists.\nDo you want to replace it?"));
  EXPECT_EQ(
      save({Name("there.pmp"), Press(QMessageBox::No), Name("there.pmp"), Press(QMessageBox::Yes)}),
      "there.pmp");
  EXPECT_EQ(save({Name("gone/a.pmp"), Press(QMessageBox::Ok), Person::Cancel}), "");
  EXPECT_THAT(told, ElementsAre("File error: Folder '" + folder / "gone" +
                                "' does not exist.\nPlease choose another one."));
}

}  // namespace
}  // namespace vesmora
