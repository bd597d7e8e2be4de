// A map in an editor without a window, and nobody to talk to.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "document/map_file.h"
#include "tools/editing.h"

namespace vesmora::bench {

class SilentDialogs final : public Dialogs {
 public:
  void Show(const Message&) override {}
  bool Ask(const Message&) override { return true; }
  std::string ChooseFileToOpen(const FileRequest&) override { return {}; }
  std::string ChooseFileToSave(const FileRequest&) override { return {}; }
  std::string AskText(const TextRequest&) override { return {}; }
  std::optional<std::int32_t> ChooseColor(std::int32_t) override { return {}; }
};

/// Notes what is out of date.
struct IdleWindow final : WindowPort {
  bool mapIsStale = false;
  bool panelIsStale = false;

  void MapChanged() override { mapIsStale = true; }
  void PanelChanged() override { panelIsStale = true; }
  void Unload() override {}
  void ShowAbout() override {}
  std::string ShowImport() override { return {}; }
  std::string ShowRecover() override { return {}; }
  void RestorePlacement() override {}
  WindowPlacement Placement() const override { return {}; }
  void Minimize() override {}
  void Unminimize() override {}
  void RunPendingEvents() override {}
  void LayOut() override {}
};

class NoSettings final : public Settings {
 public:
  std::string Read(const std::string&, const std::string&, const std::string& fallback) override {
    return fallback;
  }
  void Write(const std::string&, const std::string&, const std::string&) override {}
  FileStatus Store() override { return {}; }
};

class NoShell final : public Shell {
 public:
  bool OpenFile(const std::string&) override { return false; }
};

class NoPrograms final : public Programs {
 public:
  bool ActivateWindow(const std::string&) override { return false; }
  std::string Start(const std::string&, const std::string&) override { return {}; }
};

struct IdleWorld {
  SilentDialogs dialogs;
  IdleWindow window;
  NoSettings settings;
  NoShell shell;
  NoPrograms programs;

  Ports Given() {
    return {.files = SystemFileCalls(),
            .dialogs = dialogs,
            .window = window,
            .settings = settings,
            .shell = shell,
            .programs = programs,
            .random = [] { return 0.5; },
            .timeOfDay = [] { return std::string(); },
            .now = [] { return std::int64_t{0}; },
            .tempFolder = {},
            .tempProblem = {},
            .settingsFolder = {},
            .programFolder = {},
            .gameFolder = {}};
  }
};

inline std::string MapPath(const std::string& name) { return VESMORA_TEST_DATA "/" + name; }

/// Heavy: keep it off the stack.
struct OpenDocument : IdleWorld, Editing {
  OpenDocument() : Editing(Given()) {}

  bool Load(const std::string& path, bool isUndo = false) {
    return LoadMap(document, selection, ports.files, path, isUndo, true).outcome ==
           LoadOutcome::kLoaded;
  }
  bool Write(const std::string& path, bool isUndo) {
    return WriteMap(document, selection, ports.files, ports.random(), path, isUndo).status.Ok();
  }
};

inline std::unique_ptr<OpenDocument> Opened(const std::string& path) {
  auto opened = std::make_unique<OpenDocument>();
  if (!opened->Load(path)) throw std::runtime_error("does not load: " + path);
  return opened;
}

}  // namespace vesmora::bench
