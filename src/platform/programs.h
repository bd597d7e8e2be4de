// Other programs: bringing their windows to the front and starting them.
#pragma once

#include <memory>
#include <string>

namespace vesmora {

class Programs {
 public:
  Programs() = default;
  Programs(const Programs&) = delete;
  Programs& operator=(const Programs&) = delete;
  virtual ~Programs() = default;

  /// Brings the window with just this title to the front, restoring it when it is
  /// minimised; false when there is none or the desktop does not let it be found.
  virtual bool ActivateWindow(const std::string& title) = 0;

  /// Starts the program `path` in `folder`, with no arguments, and does not wait for it:
  /// it outlives the editor. Empty on success, else the reason in words for the user.
  [[nodiscard]] virtual std::string Start(const std::string& path, const std::string& folder) = 0;
};

/// The running system's. `*.exe` files start through Wine where that is needed.
std::unique_ptr<Programs> SystemPrograms();

}  // namespace vesmora
