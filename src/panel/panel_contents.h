// What every control of the property panel shows. The widgets only apply it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "document/map_document.h"
#include "document/scenery_types.h"
#include "document/tool_mode.h"
#include "view/canvas.h"

namespace vesmora {

/// Of check boxes: off, on, or grey where the selected objects differ.
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

/// Which list a combo box holds. "Many types" ends it while a mixed selection is shown.
enum class ComboList { kEmpty, kValues, kValuesAndMany };

struct ComboContents {
  ComboList list = ComboList::kEmpty;
  std::string text;
  bool enabled = false;

  bool operator==(const ComboContents&) const = default;
};

/// What the names in the panel are made of.
struct MapNames {
  std::string fileName;
  std::string author;  // single-byte text
  TextureName texture{};

  bool operator==(const MapNames&) const = default;
};

/// Field names are the controls' names.
struct PanelContents {
  MapNames shownNames;  // in Lkartta1 and lAuthor, which are made anew only when these change
  std::string Lkartta1;
  std::string lAuthor;
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
inline constexpr std::array<std::string_view, 4> kSpawnTypes = {"Normal", "CTF Red", "CTF Blue",
                                                                kManyTypes};
inline constexpr std::array<std::string_view, 5> kVisibilities = {"100%", "75%", "50%", "25%",
                                                                  kManyTypes};
inline constexpr std::array<std::string_view, 4> kColliderSizes = {"12", "16", "24", "32"};
/// The names of types 1 to 21.
inline constexpr auto kSceneryNames = [] {
  std::array<std::string_view, kSceneryTypes.size()> names;
  for (std::size_t type = 1; type < names.size(); ++type)
    names[type - 1] = kSceneryTypes[type].name;
  names.back() = kManyTypes;
  return names;
}();

}  // namespace vesmora
