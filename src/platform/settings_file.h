// The settings in one file of sections and keys, which is replaced as a whole like a map: the
// toolkit's own store empties it when the disk is full.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/files.h"
#include "platform/settings.h"

namespace vesmora {

class SettingsFile final : public Settings {
 public:
  /// `files` lives as long. The folder of `path` is made when something is stored.
  SettingsFile(FileCalls& files, std::string path);

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) override;
  void Write(const std::string& section, const std::string& key, const std::string& value) override;
  FileStatus Store() override;

 private:
  /// By section and key.
  using Values = std::map<std::pair<std::string, std::string>, std::string>;

  static Values ValuesIn(std::string_view text);
  static std::string TextOf(const Values& values);
  FileStatus Load(Values& values) const;

  FileCalls& files_;
  std::string path_;
  Values values_;   // as they were at the start
  Values changed_;  // and what has been written since
};

}  // namespace vesmora
