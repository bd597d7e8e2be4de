// What every control of the property panel shows, computed from the editor's state.
// The widgets only apply it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/tool_mode.h"
#include "tools/editing.h"
#include "view/canvas.h"

namespace vesmora {

/// Of check boxes: off, on, or grey where the selection is of several minds.
enum class Tick { kOff = 0, kOn = 1, kMixed = 2 };

struct ButtonContents {
  bool enabled = true;
  std::optional<Rgb> color;  // of its face; none: the neutral button colour

  bool operator==(const ButtonContents&) const = default;
};

struct CheckContents {
  Tick tick = Tick::kOff;
  bool enabled = true;

  bool operator==(const CheckContents&) const = default;
};

struct OptionContents {
  bool chosen = false;
  bool enabled = true;

  bool operator==(const OptionContents&) const = default;
};

/// Which list a combo box holds. The numbers mean different lists in the spawn and
/// the scenery boxes; a list is filled anew only when its tag changes.
enum class ListTag { kEmpty = 0, kFirst = 1, kSecond = 2, kThird = 3 };

struct ComboContents {
  ListTag tag = ListTag::kEmpty;
  std::string text;
  bool enabled = false;

  bool operator==(const ComboContents&) const = default;
};

/// Field names are the controls' names.
struct PanelContents {
  std::string Lkartta1;
  std::string lAuthor;  // single-byte text
  std::string Lkartta2;
  ButtonContents CBtausta1;
  ButtonContents CBtausta2;
  std::array<CheckContents, 7> CBnayta;
  std::string Fvalinta = "Selected";
  std::string Lvalinta = "Nothing";
  ButtonContents CBverticevari;
  ButtonContents CByhista;
  ButtonContents CBerota;
  CheckContents CBtexEiKorjaus;
  ButtonContents CBtexPalauta;
  ButtonContents CBtexPoista;
  CheckContents CBverticeLapi;
  ComboContents CBspawn;
  ComboContents CBscenery;
  ComboContents CBscenery2;
  ComboContents CBcollider;  // its list never changes
  std::array<OptionContents, 3> OBbotNayta = {{{true, true}, {}, {}}};
  std::array<OptionContents, 2> OBbotKumpi;  // path 1, path 2
  std::array<CheckContents, 5> CBbotValinta;
  /// The frame whose caption is highlighted is the active Add tool's.
  ToolMode highlightedTool = ToolMode::kEdit;

  bool operator==(const PanelContents&) const = default;
};

inline constexpr std::string_view kManyTypes = "Many types";
inline constexpr std::array<std::string_view, 3> kSpawnTypes = {"Normal", "CTF Red", "CTF Blue"};
inline constexpr std::array<std::string_view, 4> kVisibilities = {"100%", "75%", "50%", "25%"};
inline constexpr std::array<std::string_view, 4> kColliderSizes = {"12", "16", "24", "32"};

/// What the lists hold by their tags.
std::vector<std::string_view> SpawnItems(const ComboContents& combo);
std::vector<std::string_view> SceneryItems(const ComboContents& combo);
std::vector<std::string_view> VisibilityItems(const ComboContents& combo);

/// Recomputes the panel. What a control keeps from before (a typed text, the boxes
/// of the Add waypoint tool) stays in `panel`; what the panel offers for the next
/// object goes to the tool's state, a forced choice of path to the show options.
void RefreshPanel(PanelContents& panel, EditingState& state);

}  // namespace vesmora
