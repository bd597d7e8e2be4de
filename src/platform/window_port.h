// What can be asked of the main window.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vesmora {

enum class WindowState : std::int16_t { kNormal = 0, kMinimised = 1, kMaximised = 2 };

/// Pixels. What is not set is left as it is.
struct WindowPlacement {
  std::optional<std::int16_t> state;
  std::optional<std::int16_t> top;
  std::optional<std::int16_t> left;
  std::optional<std::int16_t> width;
  std::optional<std::int16_t> height;
};

class WindowPort {
 public:
  WindowPort() = default;
  WindowPort(const WindowPort&) = delete;
  WindowPort& operator=(const WindowPort&) = delete;
  virtual ~WindowPort() = default;

  // What is shown is out of date: it is brought up to date once, when the event that is being
  // handled ends or a dialog opens meanwhile.
  virtual void MapChanged() = 0;
  virtual void PanelChanged() = 0;

  /// Closes the window as its frame's button does.
  virtual void Unload() = 0;
  virtual void ShowAbout() = 0;
  /// The Import dialog: full path of the chosen prefab, empty when cancelled.
  virtual std::string ShowImport() = 0;
  /// The Recover dialog: the file of the chosen map, empty when cancelled.
  virtual std::string ShowRecover() = 0;
  /// Puts the window where the settings say it stood.
  virtual void RestorePlacement() = 0;
  virtual WindowPlacement Placement() const = 0;
  virtual void Minimize() = 0;
  /// Brings the minimised window back as it was.
  virtual void Unminimize() = 0;
  /// Lets window and desktop catch up; what the user does waits.
  virtual void RunPendingEvents() = 0;
  /// Lays the panels out for the window's size.
  virtual void LayOut() = 0;
};

}  // namespace vesmora
