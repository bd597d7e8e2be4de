// Where the window's parts lie, how small it may be, and where it stands again.
#include <QComboBox>
#include <QLabel>
#include <QScreen>

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

TEST_F(IkkunaLayoutTest, TheRestingFocusShowsOnlyWhereTabBroughtIt) {
  auto* rest = Find("Pala");
  const auto seen = [&] {  // as it has been painted
    Settle();
    const QPoint place = rest->mapTo(window.get(), QPoint());
    return window->screen()
        ->grabWindow(window->winId(), place.x(), place.y(), rest->width(), rest->height())
        .toImage();
  };
  const QImage resting = seen();
  EXPECT_EQ(QApplication::focusWidget(), rest);
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
    Key(key);
    EXPECT_NE(QApplication::focusWidget(), rest);
    for (int i = 0; i < 80 && QApplication::focusWidget() != rest; ++i) Key(key);
    const QImage reached = seen();
    EXPECT_EQ(reached.pixelColor(0, rest->height() / 2),
              rest->palette().color(QPalette::Highlight));
    EXPECT_EQ(reached.copy(3, 3, 200, rest->height() - 6),
              resting.copy(3, 3, 200, rest->height() - 6));
    Find("OBvalinta0")->setFocus();
    EXPECT_EQ(seen(), resting);
    rest->setFocus();
    EXPECT_EQ(seen(), resting);
  }
  Key(Qt::Key_Tab);
  Key(Qt::Key_Backtab);
  EXPECT_NE(seen(), resting);
  QTest::mouseClick(Find("OBvalinta0"), Qt::LeftButton, {}, {8, 8});  // gives the keys back
  EXPECT_EQ(seen(), resting);
}

TEST_F(IkkunaLayoutTest, HintAndPositionMoveNothing) {
  auto* view = Find<ViewPanel>("Pala");
  Resize(1100, 700);
  const auto places = [&] {
    QList<QRect> all;
    for (auto* control : view->findChildren<QWidget*>()) all << control->geometry();
    return all;
  };
  const QList<QRect> before = places();
  view->ShowHint("Click to drop, Escape to cancel, and so on until there is no room for more");
  ViewTransform transform;
  view->ShowState(transform, "-9999.9, -9999.9");
  Settle();
  EXPECT_EQ(places(), before);
  EXPECT_EQ(Find<QLabel>("Lvihje")->text().left(13), "Click to drop");
  EXPECT_GE(Find("Lvihje")->width(), 100);
  const auto* position = Find<QLabel>("Lsijainti");
  EXPECT_GE(position->width(), position->fontMetrics().horizontalAdvance(position->text()));
}

TEST_F(IkkunaLayoutTest, AFirstWindowIsComfortableAndASizeWithoutAPlaceIsKept) {
  window->close();
  const std::string file = folder / "Vesmora/Vesmora.conf";
  EXPECT_TRUE(std::filesystem::remove(file));
  Start();
  EXPECT_EQ(window->size(), QSize(1280, 860));
  window->close();
  std::filesystem::remove(file);
  SettingsFile stored(SystemFileCalls(), file);
  stored.Write("Windows", "Width", "1111");
  stored.Write("Windows", "Height", "777");
  EXPECT_TRUE(stored.Store().Ok());
  Start();
  EXPECT_EQ(window->size(), QSize(1111, 777));
}

TEST_F(IkkunaLayoutTest, ASmallestWindowComesBackAsItWas) {
  Resize(200, 200);
  window->move(120, 90);
  Settle();
  const QRect place = window->geometry();
  EXPECT_GT(window->frameGeometry().height(), place.height()) << "there is a frame";
  for (int times = 0; times < 2; ++times) {
    window->close();
    Start();
    EXPECT_EQ(window->geometry(), place);
  }
  const auto kept = [this] {
    return SettingsFile(files, folder / "Vesmora/Vesmora.conf").Read("Windows", "Width", "");
  };
  window->showMaximized();
  window->close();
  for (int times = 0; times < 2; ++times) {
    Start();
    EXPECT_TRUE(window->isMaximized());
    window->close();
    EXPECT_EQ(kept(), std::to_string(place.width())) << "where it returns to";
  }
  Start();
  window->showNormal();
  Resize(1234, 800);
  window->close();
  EXPECT_EQ(kept(), "1234");
}

}  // namespace
}  // namespace vesmora
