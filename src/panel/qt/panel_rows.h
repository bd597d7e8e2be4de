// Frames and rows of the property panel, close together.
#pragma once

#include <QHBoxLayout>

namespace vesmora {

inline constexpr int kFrameMargin = 4;  // pixels, at the sides
inline constexpr int kSpacing = 2;

template <typename Layout>
Layout* LayoutIn(QWidget* frame) {
  auto* layout = new Layout(frame);
  layout->setContentsMargins(kFrameMargin, 0, kFrameMargin, kSpacing);
  layout->setSpacing(kSpacing);
  return layout;
}

inline QHBoxLayout* AddRow(QBoxLayout& column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kSpacing);
  column.addLayout(row);
  return row;
}

}  // namespace vesmora
