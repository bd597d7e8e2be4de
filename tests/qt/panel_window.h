// The widgets of the property panel in a window of their own, wired as the window wires them, over
// a small map.
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <sstream>

#include "panel/qt/info_panel.h"
#include "panel/refresh_panel.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {

class PanelWindow : public testing::Test, protected Bench {
 protected:
  static constexpr auto kEdit = ToolMode::kEdit;
  /// Two of each kind, the waypoints and spawns differing.
  static constexpr const char* kMany = "v0.0 v1.0 s0 s1 o0 o1 c0 c1 w0 w1";

  PanelWindow() {
    // As a snapshot leaves them, so that it changes nothing.
    map.author = "Ann";
    map.randomId = 501;
    StoreAuthor(map);
    for (const float x : {0.0f, 100.0f}) {
      const bool isFirst = x == 0;
      AddTriangle(map, {{{x, 0}, {x + 40, 0}, {x, 40}}});
      AddSpawn(map, x, 100, isFirst ? 0 : 1);
      AddScenery(map, x, 150, isFirst ? 1 : 17).level = isFirst ? 255 : 200;
      AddCollider(map, x, 200, isFirst ? 12 : 20.5f);
      AddWaypoint(map, x, 250, isFirst ? 1 : 2).botSettings = {1, 0, isFirst, !isFirst, 0};
    }
    window.onRefresh = [this] { isStale_ = true; };
    QObject::connect(&widget, &InfoPanel::Triggered, &widget,
                     [this](const InfoPanel::Handler& handler) {
                       ++triggered;
                       RunHandler(editor, handler);
                       if (std::exchange(isStale_, false)) FindContents();
                       widget.Apply(editor.panel.contents);
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
  void FindContents() { RefreshPanel(editor.panel.contents, editor); }
  /// With a tool, and objects selected as Bench::Listed calls them.
  void Refresh(ToolMode tool, const std::string& listed) {
    map.toolIndex = tool;
    ClearLists(selection);
    std::istringstream entries(listed);
    int index = 0;
    int corner = 0;
    for (char kind = 0; entries >> kind >> index;) {
      if (kind == 'v') entries >> kind >> corner;  // the dot
      const auto slot = static_cast<std::int16_t>(index);
      const auto byte = static_cast<std::uint8_t>(index);
      if (kind == '.') selection.vertices.Append({slot, static_cast<std::uint8_t>(corner)});
      if (kind == 's') selection.spawns.Append(byte);
      if (kind == 'o') selection.sceneries.Append(byte);
      if (kind == 'c') selection.colliders.Append(byte);
      if (kind == 'w') selection.waypoints.Append(slot);
    }
    EXPECT_EQ(Listed(), listed);
    UpdateSelectionBox(selection, map);
    FindContents();
    widget.Apply(editor.panel.contents);
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

 private:
  bool isStale_ = false;
};

}  // namespace vesmora
