#include "platform/qt/qt_settings.h"

#include <QStringList>

#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

QString PathOf(const std::string& section, const std::string& key) {
  return ToQt(section + "/" + key);
}

}  // namespace

std::string QtSettings::Read(const std::string& section, const std::string& key,
                             const std::string& fallback) {
  const QVariant value = store_.value(PathOf(section, key));
  if (!value.isValid()) return fallback;
  // A text with commas that a person typed into the file comes back as a list.
  return value.toStringList().join(",").toStdString();
}

void QtSettings::Write(const std::string& section, const std::string& key,
                       const std::string& value) {
  store_.setValue(PathOf(section, key), ToQt(value));
}

}  // namespace vesmora
