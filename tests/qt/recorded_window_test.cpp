// An hour with the window: after each step what its controls are, say and look like, against a
// record in words that keeps only what the step has changed. Letters are boxes, so that the window
// has the same pixels on every machine with this Qt. VESMORA_RECORD=1 records anew.
#include <QAbstractItemView>
#include <QAccessible>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <fstream>
#include <map>
#include <sstream>

#include "app/prefab_commands.h"
#include "app/qt/import_dialog.h"
#include "document/checksum.h"
#include "document/prefab_file.h"
#include "platform/qt/qt_text.h"
#include "real_window.h"
#include "support/map_builder.h"
#include "support/record.h"

namespace vesmora {
namespace {

/// All texts in boxes, whatever fonts there are, and all faces flat: gradients are not the same on
/// every processor.
class PlainLooks {
 protected:
  PlainLooks() {
    QApplication::setStyle("windows");
    SetPoints(9);
  }
  ~PlainLooks() {
    QFontDatabase::removeApplicationFont(id_);
    QApplication::setStyle(style_);
  }
  static void SetPoints(int points) {
    QFont boxes("Boxes", points);
    boxes.setHintingPreference(QFont::PreferNoHinting);
    boxes.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(boxes);
  }

 private:
  const QString style_ = QApplication::style()->name();
  const int id_ = QFontDatabase::addApplicationFont(ToQt(DataPath("boxes.ttf")));
};

/// What is worth a word about something, in one line.
class Words {
 public:
  Words& Add(const char* name, QString value) {
    if (!value.isEmpty()) text_ += QString(" %1 '%2'").arg(name, value.replace('\n', " / "));
    return *this;
  }
  Words& Add(const char* name, int value) {
    return Add(name, value == 0 ? QString() : QString::number(value));
  }
  Words& If(bool holds, const char* name) {
    if (holds) text_ += QString(" ") + name;
    return *this;
  }
  std::string Text() const { return text_.toStdString(); }

 private:
  QString text_;
};

std::string Described(QWidget& control) {
  auto* reader = QAccessible::queryAccessibleInterface(&control);
  const QAccessible::State state = reader->state();
  const QRect place = control.geometry();
  Words words;
  words.Add("says", reader->text(QAccessible::Name))
      .Add("about", reader->text(QAccessible::Description))
      .Add("value", reader->text(QAccessible::Value))
      .Add("tip", control.toolTip())
      .If(state.checked, "checked")
      .If(state.checkStateMixed, "mixed")
      .If(state.disabled, "disabled")
      .If(control.hasFocus() && control.window()->inherits("QMainWindow"), "focused")
      .Add("pointer", control.cursor().shape())
      .Add("focus", control.focusPolicy())
      .Add("menu", control.contextMenuPolicy() - Qt::DefaultContextMenu);
  if (auto* combo = qobject_cast<QComboBox*>(&control)) {
    for (int i = 0; i < combo->count(); ++i) words.Add("item", combo->itemText(i));
  }
  if (auto* list = qobject_cast<QListWidget*>(&control)) {
    for (int i = 0; i < list->count(); ++i) words.Add("item", list->item(i)->text());
  }
  if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
    words.Add("key", button->shortcut().toString());
  }
  std::ostringstream out;
  out << control.metaObject()->className() << ' ' << place.x() << ' ' << place.y() << ' '
      << place.width() << ' ' << place.height() << words.Text();
  return out.str();
}

/// Names of the controls from the window down to this one.
std::string PathOf(QWidget* control) {
  if (control->isWindow()) return {};
  auto* parent = control->parentWidget();
  const auto all = parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  const QString name = control->objectName();
  return PathOf(parent) + "/" +
         (name.isEmpty() ? std::to_string(all.indexOf(control)) : name.toStdString());
}

/// What has been painted of the window, not painted for the picture. Of dialogs and lists, which
/// the system shows when it finds the time, neither this nor the focus is noted.
std::string PictureOf(QWidget& shown) {
  if (!shown.inherits("QMainWindow")) return "as it says";
  QImage pixels;
  EXPECT_TRUE(QTest::qWaitFor([&] {
    pixels = shown.screen()->grabWindow(shown.winId()).toImage();
    return !pixels.isNull();
  }));
  pixels.convertTo(QImage::Format_RGB32);
  std::ostringstream out;
  out << std::hex
      << Checksum(std::as_bytes(std::span(pixels.constBits(), std::size_t(pixels.sizeInBytes()))));
  return out.str().substr(0, 8);
}

using Lines = std::map<std::string, std::string>;  // by what they are about

/// All controls, menus and items of a window.
Lines LinesOf(QWidget& root) {
  Lines present;
  for (auto* control : root.findChildren<QWidget*>()) {
    const bool isSeen = control->window() == &root && control->isVisibleTo(&root);
    if (isSeen) present[PathOf(control)] = Described(*control);
  }
  for (auto* item : root.findChildren<QAction*>(QRegularExpression("."))) {
    present["menu " + item->objectName().toStdString()] =
        Words()
            .Add("says", item->text())
            .Add("key", QKeySequence::listToString(item->shortcuts()))
            .If(!item->isEnabled(), "disabled")
            .If(!item->isVisible(), "hidden")
            .Text();
  }
  for (const auto* menu : root.findChildren<QMenu*>()) {
    QStringList items;
    for (const QAction* item : menu->actions()) items << item->objectName();
    present["menu " + menu->title().toStdString()] = items.join(' ').toStdString();
  }
  present["window"] = Described(root);
  return present;
}

class RecordedWindowTest : protected PlainLooks, public RealWindow {
 protected:
  RecordedWindowTest() {
    QLocale::setDefault(QLocale::c());
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    Resize(1000, 700);
    QTest::mouseMove(surface, {400, 300});
  }

  /// Writes down what is other in a window than it was; all of it the first time.
  void Note(const std::string& step, QWidget& root) {
    for (auto* label : root.findChildren<QLabel*>()) {
      if (label->text().contains(folder_)) label->setText(label->text().replace(folder_, "~/"));
    }
    Settle();
    const Lines present = LinesOf(root);
    record_ += "== " + step + ", looks " + PictureOf(root) + "\n";
    auto& before = noted_[&root == window.get()];
    if (&root != window.get()) before.clear();
    for (const auto& [name, words] : present) {
      if (before[name] != words) record_ += name + "  " + words + "\n";
    }
    for (const auto& [name, words] : before) {
      if (!present.contains(name)) record_ += name + " is gone\n";
    }
    before = present;
  }
  void Note(const std::string& step) { Note(step, *window); }

  void Click(const QString& name) {
    auto* button = Find<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, {8, button->height() / 2});
    ComeToFront();
    Note("click " + name.toStdString());
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
    Key(key, held);
    ComeToFront();
    Note("press " + QKeySequence(key | held).toString().toStdString());
  }
  /// Opens a list, looks at it and takes what lies a row further.
  void ChooseNext(const char* name) {
    auto* combo = Find<QComboBox>(name);
    combo->showPopup();
    Note(std::string("open ") + name, *combo->view()->window());
    QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    ComeToFront();
    Note(std::string("choose in ") + name);
  }
  void Run(const char* command) {
    RealWindow::Run(command);
    ComeToFront();
    Note(command);
  }
  /// An answer that looks at a dialog first.
  Person::Answer Seen(const std::string& step, const Person::Answer& answer) {
    return [this, step, answer](QDialog& dialog) {
      Note(step, dialog);
      answer(dialog);
    };
  }
  static void Accept(QDialog& dialog) { dialog.accept(); }
  /// Drops a file as for a move, and notes what the source hears of it.
  void Drop(const std::string& dropped, Qt::DropActions possible) {
    QMimeData data;
    data.setUrls(
        {QUrl::fromEncoded("file://" + QByteArray::fromStdString(dropped).toPercentEncoding("/"))});
    QDragEnterEvent enter({9, 9}, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent drop({9, 9}, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
    drop.ignore();
    QApplication::sendEvent(window.get(), &drop);
    Settle();
    Note("drop, told " + std::to_string(enter.dropAction()) + " " +
         std::to_string(drop.dropAction()) + " " + std::to_string(drop.isAccepted()));
  }
  /// As it looks on the way, with the button held.
  void NotedDrag(const std::string& step, QPoint from, QPoint to, Qt::MouseButton button) {
    QTest::mouseMove(surface, from);
    QTest::mousePress(surface, button, {}, from);
    QTest::mouseMove(surface, to);
    Note(step + " on the way");
    QTest::mouseRelease(surface, button, {}, to);
    Note(step);
  }

  void NoteRecoverable(QDialog& dialog) {
    Settle();  // the list shows its choice once more
    dialog.findChild<QLabel*>("lAika")->setText("then");
    Note("recover", dialog);
    static const QRegularExpression time("\\d\\d:\\d\\d  ");
    record_ = ToQt(record_).replace(time, "hh:mm  ").toStdString();
  }

  /// With the record, of which the first line that differs is told.
  void Compare() {
    record_ = ToQt(record_)
                  .replace("/0/qt_scrollarea_viewport/0/", "/")
                  .replace(folder_, "~/")
                  .toStdString();
    const std::string file = DataPath("recorded_window.txt");
    record_.insert(0, std::string("Qt ") + qVersion() + "\n");
    if (IsRecording()) std::ofstream(file) << record_;
    std::ifstream known(file);
    std::istringstream seen(record_);
    std::string step;
    for (std::string was, is; std::getline(known, was);) {
      std::getline(seen, is);
      if (is.starts_with("Qt ") && is != was) GTEST_SKIP() << is << " draws otherwise than " << was;
      if (is.starts_with("== ")) step = is;
      ASSERT_EQ(is.substr(0, is.find(", looks")), was.substr(0, was.find(", looks"))) << step;
      ASSERT_EQ(is, was) << "says the same and looks other";
    }
    EXPECT_TRUE(seen.peek() == EOF) << "more than is on record";
  }

  std::string record_;

 private:
  const QString folder_ = ToQt(folder.Path());
  std::array<Lines, 2> noted_;  // of dialogs, of the window
};

TEST_F(RecordedWindowTest, GoesAsItDid) {
  if (QApplication::platformName() != "offscreen") GTEST_SKIP() << "frames and screens differ";
  Note("start");
  Place(1, -150, -100);
  Note("first corner");
  Place(1, -50, -100);
  Place(1, -150, 0);
  Note("polygon");
  Place(2, 0, -100);
  Place(2, 60, -100);
  Place(3, -100, 60);
  Note("scenery");
  Place(4, 60, 60);
  Place(5, 0, 150);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  Place(5, 80, 150);
  Note("connected");
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Shift);
  for (int tool = 5; tool >= 0; --tool) Click(QString("OBvalinta%1").arg(tool));
  Press(Qt::Key_A, Qt::ControlModifier);
  const auto yellow = [](QDialog& dialog) {
    dynamic_cast<QColorDialog&>(dialog).setCurrentColor({250, 220, 40});
    dialog.accept();
  };
  for (int i = 0; i < 3; ++i) person.answers.emplace_back(yellow);
  person.answers.push_back(Seen("passable?", Person::Cancel));
  for (const char* name :
       {"CBverticevari", "CBtausta1", "CBtausta2", "CBverticeLapi", "CBbotValinta0",
        "CBbotValinta4", "OBbotKumpi1", "OBbotKumpi2", "CBtexEiKorjaus", "CByhista", "CBerota",
        "CBtexPoista", "CBtexPalauta"}) {
    Click(name);
  }
  for (const char* name :
       {"CBspawn", "CBscenery", "CBscenery2", "CBcollider", "CBzoom", "CBgrid"}) {
    ChooseNext(name);
  }
  Click("CBfixed");
  for (const int box : {0, 1, 6, 0}) Click(QString("CBnayta%1").arg(box));
  for (const int shown : {1, 2, 0}) Click(QString("OBbotNayta%1").arg(shown));
  for (const auto& [name, text] : {std::pair("CBscenery2", "70"), {"CBcollider", "1"}}) {
    auto* size = Find<QComboBox>(name);
    size->setFocus();
    size->lineEdit()->selectAll();
    QTest::keyClicks(QApplication::focusWidget(), text);
    Note(std::string("type in ") + name);
    Press(Qt::Key_Return);
  }
  Press(Qt::Key_Z, Qt::ControlModifier);
  Press(Qt::Key_Y, Qt::ControlModifier);
  Press(Qt::Key_Escape);
  NotedDrag("select", At(20, 20), At(100, 100), Qt::LeftButton);
  NotedDrag("move", At(60, 60), At(110, 80), Qt::LeftButton);
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
    Press(key, Qt::ControlModifier);
  }
  NotedDrag("pan", At(0, 0), At(40, -30), Qt::RightButton);
  Wheel(-120);
  Note("wheel");
  Press(Qt::Key_Plus, Qt::KeypadModifier);
  for (int i = 0; i < 12; ++i) Press(Qt::Key_Tab);
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  SetPoints(12);
  Note("larger letters");
  SetPoints(9);
  for (const QSize size : {QSize(100, 100), QSize(1100, 900)}) {
    window->resize(size);
    Note("resize");
  }
  const QPalette light = QApplication::palette();
  QPalette dark(QColor(60, 60, 60));
  QApplication::setPalette(dark);
  Note("dark");
  QApplication::setPalette(light);
  person.answers = {Seen("about", Accept)};
  Run("MenuAbout");
  person.answers = {Seen("author", [](QDialog& dialog) {
    dynamic_cast<QInputDialog&>(dialog).setTextValue("Somebody");
    dialog.accept();
  })};
  Click("CBauthor");
  std::filesystem::create_directories(PrefabFolder(editor.ports));
  AddTriangle(map, {{{0, 0}, {10, 0}, {0, 10}}});
  PutFile(PrefabFolder(editor.ports) + "a.pre", WritePrefab(map));
  Import import(editor, nullptr);
  import.show();
  Note("import", import);
  import.findChild<QListWidget*>()->setCurrentRow(0);
  Note("prefab", import);
  import.close();
  const std::string other = folder / "R&D\xFF.pmp";  // no text
  PutFile(other, FileBytes(DataPath("small.pmp")));
  Drop(other, Qt::MoveAction);
  Drop(other, Qt::CopyAction | Qt::MoveAction);
  person.answers = {Person::Cancel};
  Run("MenuImport");
  Run("MenuNew");
  Run("File1");
  Run("MenuNew");
  person.answers = {[this](QDialog& dialog) {
    NoteRecoverable(dialog);
    dialog.accept();
  }};
  Run("MenuRecover");
  window->showMaximized();
  Note("maximised");
  window->close();
  Start();
  Note("started anew");
  Compare();
}

}  // namespace
}  // namespace vesmora
