// Settings in the toolkit's per-user store.
#pragma once

#include <QSettings>

#include "platform/settings.h"

namespace vesmora {

class QtSettings final : public Settings {
 public:
  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) override;
  void Write(const std::string& section, const std::string& key, const std::string& value) override;

 private:
  QSettings store_{"Vesmora", "Vesmora"};
};

}  // namespace vesmora
