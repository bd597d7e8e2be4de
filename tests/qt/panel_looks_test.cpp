// What the property panel looks like: faces of colour buttons, captions, and everything in its
// place in every font.
#include <QAccessible>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <memory>

#include "platform/qt/qt_text.h"
#include "qt/panel_window.h"
#include "view/qt/panel_scroll.h"

namespace vesmora {
namespace {

class PanelLooksTest : public PanelWindow {
 protected:
  ~PanelLooksTest() override { QApplication::setFont(font_); }

  static QImage PictureOf(QWidget* shown) { return shown->grab().toImage(); }
  /// What has been painted of it: unlike above, not painted for the picture.
  static QImage OnScreen(QWidget* shown) {
    const QPoint place = shown->mapTo(shown->window(), QPoint());
    return shown->screen()
        ->grabWindow(shown->window()->winId(), place.x(), place.y(), shown->width(),
                     shown->height())
        .toImage();
  }
  /// Pixels of `picture` within `area` that are exactly `color`.
  static int Count(const QImage& picture, const QRect& area, QColor color) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        count += picture.pixelColor(x, y) == color ? 1 : 0;
      }
    }
    return count;
  }
  void SetPointSize(int points) {
    QFont font = font_;
    font.setPointSize(points);
    QApplication::setFont(font);
    // Frames first, then what they lie in.
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
  }
  /// Each control is as large as it needs, inside the panel and over no other.
  void ExpectWhole() {
    const auto* content = widget.findChild<PanelScroll*>()->widget();
    std::vector<std::pair<QString, QRect>> places;
    for (auto* control : content->findChildren<QWidget*>()) {
      const bool isCombo = control->inherits("QComboBox");
      const bool isAtom = isCombo || control->inherits("QAbstractButton") ||
                          (control->inherits("QLabel") && control->objectName() != "lAuthor");
      if (!control->isVisible() || control->visibleRegion().isEmpty()) continue;
      if (!isAtom || control->parent()->inherits("QComboBox")) continue;
      const QSize need = control->minimumSizeHint();
      const QString name = control->objectName();
      EXPECT_GE(control->width(), need.width()) << name.toStdString();
      EXPECT_GE(control->height(), need.height()) << name.toStdString();
      const QRect place(control->mapTo(&widget, QPoint()), control->size());
      EXPECT_TRUE(widget.rect().contains(place)) << name.toStdString();
      for (const auto& [other, otherPlace] : places) {
        EXPECT_FALSE(place.intersects(otherPlace))
            << name.toStdString() << " over " << other.toStdString();
      }
      places.emplace_back(name, place);
    }
    EXPECT_GT(places.size(), 35U);
  }
  /// Pixels that a combo box has for its text.
  static int TextRoom(QComboBox* combo) {
    if (combo->isEditable()) return combo->lineEdit()->width() - 6;  // margins and cursor
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = false;
    return combo->style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
        .width();
  }

  const QFont font_ = QApplication::font();
};

TEST_F(PanelLooksTest, AColorButtonHasItsExactColorAndNamesIt) {
  auto* upper = Find<QPushButton>("CBtausta1");
  const std::unique_ptr<QStyle> otherStyle(QStyleFactory::create("windows"));
  using Face = std::pair<QColor, QColor>;  // and its caption
  for (const auto& [color, contrast] :
       {Face(QColor(255, 0, 0), Qt::black), Face(Qt::black, Qt::white), Face(Qt::white, Qt::black),
        Face(QColor(0, 215, 0), Qt::black), Face(QColor(255, 0, 255), Qt::black),
        Face(QColor(10, 100, 30), Qt::white), Face(QColor(0, 0, 255), Qt::white),
        Face(QColor(115, 115, 115), Qt::white), Face(QColor(122, 122, 122), Qt::black)}) {
    map.backgroundColor1 = {static_cast<std::uint8_t>(color.blue()),
                            static_cast<std::uint8_t>(color.green()),
                            static_cast<std::uint8_t>(color.red()), 77};
    Refresh(kEdit, "");
    const QString words =
        QString("red %1, green %2, blue %3").arg(color.red()).arg(color.green()).arg(color.blue());
    auto* reader = QAccessible::queryAccessibleInterface(upper);
    EXPECT_TRUE(reader->text(QAccessible::Description).contains(words));
    EXPECT_EQ(reader->text(QAccessible::Name), "Upper");
    EXPECT_TRUE(upper->toolTip().contains(words));

    const QImage face = PictureOf(upper);
    EXPECT_EQ(OnScreen(upper).pixelColor(8, upper->height() / 2), color);
    QRect caption = upper->fontMetrics().boundingRect(upper->text());
    caption.moveCenter(upper->rect().center());
    caption.adjust(-3, -3, 3, 3);
    const QRect flat = upper->rect().adjusted(1, 1, -1, -1);
    EXPECT_EQ(Count(face, flat, color) - Count(face, caption, color),
              flat.width() * flat.height() - caption.width() * caption.height());
    if (color != Qt::black) {
      EXPECT_EQ(Count(face, face.rect(), color), Count(face, flat, color)) << "a frame around it";
    }
    int readable = 0;
    for (int x = caption.left(); x <= caption.right(); ++x) {
      const QRgb pixel = face.pixel(x, caption.center().y());
      const int toContrast = qGray(contrast.rgb()) - qGray(color.rgb());
      readable += (qGray(pixel) - qGray(color.rgb())) * 3 / toContrast >= 2 ? 1 : 0;
    }
    EXPECT_GT(readable, 3) << "the caption";
    upper->setStyle(otherStyle.get());
    EXPECT_EQ(PictureOf(upper), face) << "the style has no say";
    upper->setStyle(nullptr);
    // Shown at the edge, or by the caption: the colour stays.
    upper->setFocus();
    const QImage focused = PictureOf(upper);
    EXPECT_NE(focused, face);
    upper->setDown(true);
    const QImage pressed = PictureOf(upper);
    EXPECT_NE(pressed, focused);
    upper->setDown(false);
    upper->clearFocus();
    upper->setEnabled(false);
    const QImage disabled = PictureOf(upper);
    EXPECT_NE(disabled, face);
    for (const QImage& picture : {focused, pressed, disabled}) {
      EXPECT_EQ(picture.pixelColor(8, picture.height() / 2), color);
    }
    upper->setEnabled(true);
  }
  auto* corner = Find<QPushButton>("CBverticevari");
  for (const bool isAlike : {true, false}) {
    map.polygons[0].vertices[0].color = map.polygons[0].vertices[1].color = {30, 20, 10, 0};
    if (!isAlike) map.polygons[0].vertices[1].color.red = 11;
    Refresh(kEdit, "v0.0 v0.1");
    QPushButton plain(corner->text(), corner->parentWidget());
    plain.resize(corner->size());
    EXPECT_EQ(Count(PictureOf(corner), corner->rect(), QColor(10, 20, 30)) > 500, isAlike);
    EXPECT_EQ(PictureOf(corner) == PictureOf(&plain), !isAlike) << "grey again";
    EXPECT_EQ(corner->toolTip().contains("red"), isAlike);
  }
}

TEST_F(PanelLooksTest, LongNamesAreCutAndToldWhole) {
  map.fileName = "/maps/A & " + std::string(60, 'W') + ".pmp";
  map.author = "<b>" + std::string(35, 'M');  // is shown as it is
  const int width = widget.WidthFor(1000);
  EXPECT_GT(Find("lAuthor")->mapTo(&widget, QPoint()).x(),
            Find("Lkartta1")->mapTo(&widget, QPoint()).x() + 20);
  widget.setToolTip("of what lies around");
  Refresh(kEdit, "");
  EXPECT_EQ(widget.WidthFor(1000), width);
  for (const char* name : {"Lkartta1", "lAuthor"}) {
    auto* label = Find<QLabel>(name);
    const QString whole = label->text();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name), whole);
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), label->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(label, &help);
    EXPECT_EQ(QToolTip::text(), whole.contains('<') ? whole.toHtmlEscaped() : whole) << name;
    const QImage cut = PictureOf(label);
    QStringList lines;
    for (const QString& line : whole.split('\n')) {
      lines << label->fontMetrics().elidedText(line, Qt::ElideRight, label->width());
    }
    EXPECT_TRUE(lines.join("").contains(QChar(0x2026)));
    label->setText(lines.join('\n'));
    EXPECT_EQ(PictureOf(label), cut);
    QToolTip::showText(QPoint(), "before");
    QApplication::sendEvent(label, &help);
    EXPECT_NE(QToolTip::text(), label->text()) << "what is whole needs none";
  }
}

TEST_F(PanelLooksTest, NothingIsCutOrCoveredInAnyFont) {
  for (const int points : {8, 9, 10, 12, 15}) {
    SCOPED_TRACE(points);
    SetPointSize(points);
    Fit(1150);
    Refresh(kEdit, kMany);
    ExpectWhole();
    EXPECT_LT(widget.width(), points * 48);
    const auto room = [this](const char* name, const char* text) {
      const auto* label = Find<QLabel>(name);
      EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(text)) << text;
    };
    room("Lvalinta", "500 Waypoints255 Sceneries");
    for (const char* line : {"400/400 Polygons", "255/255 Sceneries", "500/500 Waypoints"}) {
      room("Lkartta2", line);
    }
    for (const char* name : {"CBspawn", "CBscenery", "CBscenery2", "CBcollider"}) {
      auto* combo = Find<QComboBox>(name);
      ASSERT_GT(combo->count(), 3) << name;
      for (int i = 0; i < combo->count(); ++i) {
        EXPECT_GE(TextRoom(combo), combo->fontMetrics().horizontalAdvance(combo->itemText(i)))
            << combo->itemText(i).toStdString();
      }
    }
    for (const char* name : {"OBbotNayta0", "OBbotKumpi1"}) {
      EXPECT_EQ(Find(name)->width(), Find(name)->sizeHint().width()) << "not drawn apart";
    }
    // The author stands behind his heading.
    const auto* heading = Find<QLabel>("Lkartta1");
    EXPECT_EQ(Find("lAuthor")->mapTo(&widget, QPoint()) - heading->mapTo(&widget, QPoint()),
              QPoint(heading->fontMetrics().horizontalAdvance("Author: "),
                     heading->fontMetrics().lineSpacing()));
    // With too little height all is still there, beside a scroll bar.
    Fit(400);
    auto* scroll = widget.findChild<PanelScroll*>();
    EXPECT_TRUE(scroll->verticalScrollBar()->isVisible());
    EXPECT_GE(scroll->viewport()->width(), scroll->widget()->minimumSizeHint().width());
    auto* last = Find("CBbotValinta4");
    last->setFocus();
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect()) << "the focus is always seen";
    Find("CBauthor")->setFocus();
  }
}

}  // namespace
}  // namespace vesmora
