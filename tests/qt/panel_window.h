// The widgets of the property panel in a window of their own, wired as the window wires them.
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include "panel/qt/info_panel.h"
#include "support/panel_bench.h"

namespace vesmora {

class PanelWindow : public testing::Test, protected PanelBench {
 protected:
  static constexpr auto kEdit = ToolMode::kEdit;
  /// Two of each kind, the waypoints and spawns differing.
  static constexpr const char* kMany = "v0.0 v1.0 s0 s1 o0 o1 c0 c1 w0 w1";

  PanelWindow() {
    QObject::connect(&widget, &InfoPanel::Triggered, &widget,
                     [this](const InfoPanel::Handler& handler) {
                       ++triggered;
                       Handle(handler);
                       widget.Apply(shown);
                     });
    Fit(1000);
    parent.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&parent));
    Refresh(kEdit, "");
  }

  /// As wide as it asks for at that height.
  void Fit(int height) {
    widget.resize(widget.WidthFor(height), height);
    parent.resize(widget.size());
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();  // a scroll bar comes or goes
  }
  void Refresh(ToolMode tool, const std::string& listed) {
    Show(tool, listed);
    widget.Apply(shown);
    QCoreApplication::processEvents();
  }
  template <typename Widget = QWidget>
  Widget* Find(const QString& name) {
    auto* found = widget.findChild<Widget*>(name);
    if (found == nullptr) ADD_FAILURE() << "no " << name.toStdString();
    return found;
  }
  void Click(const QString& name) {
    auto* button = Find<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  }

  QWidget parent;
  InfoPanel& widget = *new InfoPanel(&parent);
  int triggered = 0;
};

}  // namespace vesmora
