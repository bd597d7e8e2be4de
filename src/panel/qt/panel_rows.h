// Frames and rows of the property panel, close together.
#pragma once

#include <QGridLayout>
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

/// Captions in the first column, what they belong to in the second.
inline QGridLayout* AddCaptioned(QBoxLayout& column) {
  auto* grid = new QGridLayout;
  grid->setVerticalSpacing(kSpacing);
  grid->setHorizontalSpacing(2 * kSpacing);
  grid->setColumnStretch(1, 1);
  column.addLayout(grid);
  return grid;
}

}  // namespace vesmora
