// The main window as commands see it: notes what it was asked for.
#pragma once

#include <string>

#include "app/window_port.h"
#include "support/fake_display.h"

namespace vesmora {

class FakeWindow final : public WindowPort {
 public:
  /// Logs what FakeDisplay does, and "Unload", "ShowAbout", "ShowImport",
  /// "RestorePlacement", "Minimize", "Unminimize", "RunPendingEvents" and "LayOut". As in the real
  /// window nothing is drawn while `redrawSuppressed` is true.
  FakeWindow(EventLog& events, const bool& redrawSuppressed)
      : events_(events), redrawSuppressed_(redrawSuppressed), display_(events) {}

  WindowPlacement placement;
  std::string chosenPrefab;  // in the Import dialog; empty is Cancel

  PointerShape Pointer() const { return display_.pointer; }

  void RedrawMap() override {
    if (!redrawSuppressed_) display_.RedrawMap();
  }
  void RefreshInfoPanel() override { display_.RefreshInfoPanel(); }
  void SetPointer(PointerShape shape) override { display_.SetPointer(shape); }
  void Unload() override { events_.emplace_back("Unload"); }
  void ShowAbout() override { events_.emplace_back("ShowAbout"); }
  std::string ShowImport() override {
    events_.emplace_back("ShowImport");
    return chosenPrefab;
  }
  void RestorePlacement() override { events_.emplace_back("RestorePlacement"); }
  WindowPlacement Placement() const override { return placement; }
  void Minimize() override { events_.emplace_back("Minimize"); }
  void Unminimize() override { events_.emplace_back("Unminimize"); }
  void RunPendingEvents() override { events_.emplace_back("RunPendingEvents"); }
  void LayOut() override { events_.emplace_back("LayOut"); }

 private:
  EventLog& events_;
  const bool& redrawSuppressed_;
  FakeDisplay display_;
};

}  // namespace vesmora
