// Texts for the toolkit.
#pragma once

#include <QAnyStringView>
#include <QString>
#include <string_view>

namespace vesmora {

inline QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Whether a shown text is this one; makes no copy, as it is asked with every mouse move.
inline bool ShowsSame(const QString& shown, std::string_view utf8) {
  const QUtf8StringView text(utf8.data(), static_cast<qsizetype>(utf8.size()));
  return QAnyStringView::compare(shown, text) == 0;
}

}  // namespace vesmora
