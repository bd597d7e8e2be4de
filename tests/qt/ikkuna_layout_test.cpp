// Where the window's parts lie, how small it may be, and where it stands again.
#include <QComboBox>
#include <QLabel>

#include "real_window.h"

namespace vesmora {
namespace {

class IkkunaLayoutTest : public RealWindow {
 protected:
  void SetPointSize(int points) {
    QFont sized = font;
    sized.setPointSize(points);
    QApplication::setFont(sized);
    Settle();
  }
  /// What of a control can be seen, in the window.
  QRect Seen(const QWidget* control) {
    const QRect seen = control->visibleRegion().boundingRect();
    return seen.translated(control->mapTo(window.get(), QPoint()));
  }
  void ExpectStripsWhole() {
    for (const char* strip : {"Pala", "Pyla"}) {
      for (auto* control : Find(strip)->findChildren<QWidget*>()) {
        const bool isControl = control->inherits("QAbstractButton") ||
                               control->inherits("QComboBox") || control->inherits("QLabel");
        if (!isControl || !control->isVisible() || control->objectName() == "Lvihje") continue;
        EXPECT_EQ(Seen(control).size(), control->size()) << control->objectName().toStdString();
        EXPECT_GE(control->width(), control->minimumSizeHint().width());
        EXPECT_GE(control->height(), control->minimumSizeHint().height());
      }
    }
  }
};

TEST_F(IkkunaLayoutTest, PanelsAndSmallestWindowFollowTheFont) {
  const QWidget* area = Find("Map");
  const auto background = [&](const QWidget* panel, QPoint place) {
    return window->grab().toImage().pixelColor(panel->mapTo(window.get(), place));
  };
  int width = 0;
  for (const int points : {8, 9, 12, 15}) {
    SCOPED_TRACE(points);
    SetPointSize(points);
    Resize(200, 200);
    const QRect properties = Find("Ppalkki")->geometry();
    const QRect view = Find("Pala")->geometry();
    const QRect tools = Find("Pyla")->geometry();
    EXPECT_GT(properties.width(), width) << "anew at once";
    width = properties.width();
    EXPECT_EQ(properties, QRect(area->width() - width, 0, width, area->height() + 2));
    EXPECT_EQ(view,
              QRect(0, area->height() - view.height(), area->width() - width + 4, view.height()));
    EXPECT_EQ(tools, QRect(0, 0, area->width(), tools.height()));
    EXPECT_EQ(Find("Fmaski0")->geometry(),
              QRect(properties.left() - 15, view.top() + 2, 15, view.height() - 4));
    EXPECT_EQ(Find("Fmaski1")->geometry(),
              QRect(properties.left() - 15, 0, 15, tools.height() - 3));
    EXPECT_EQ(surface->geometry(), surface->parentWidget()->rect());
    EXPECT_EQ(surface->grab().toImage().pixelColor(surface->rect().bottomRight()), kMapBackground)
        << "drawn anew for its size";
    EXPECT_EQ(window->frameGeometry().height(), view.height() + tools.height() + 534);
    if (points == 9) {
      EXPECT_EQ(window->frameGeometry().width(), width + 648);
      EXPECT_NEAR(view.height(), 40, 4);
    }
    EXPECT_GE(window->frameGeometry().width(), width + 648);
    ExpectStripsWhole();
    for (const char* name : {"Pala", "Pyla", "Ppalkki"}) {
      const QWidget* panel = Find(name);
      for (const int inset : {1, 3}) {
        EXPECT_EQ(background(panel, {inset, panel->height() / 2}),
                  panel->palette().color(QPalette::Window))
            << name;
      }
    }
  }
  // Larger than the screen it never gets: scroll bars come.
  SetPointSize(24);
  Resize(200, 200);
  EXPECT_LE(window->frameGeometry().width(), window->screen()->availableSize().width());
  EXPECT_LE(window->frameGeometry().height(), window->screen()->availableSize().height());
  for (const char* name : {"OBvalinta5", "CBfixed", "OBbotNayta2", "OBvalinta0"}) {
    auto* button = Find<QAbstractButton>(name);
    button->setFocus();
    Settle();
    EXPECT_FALSE(Seen(button).isEmpty()) << name;
  }
}

}  // namespace
}  // namespace vesmora
