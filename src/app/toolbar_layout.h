#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/commands.h"

namespace qublet {

struct ToolButton {
  const char* key;  // "Separator" for a gap
  const char* tip = "";
  const char* picture = "";
  std::optional<CommandName> command = {};  // the menu entry that it stands for; nothing: it opens the drop-down

  bool IsSeparator() const { return *tip == '\0'; }
};

// By index from 1, as the buttons stand unless the user has customised them; [0] is none.
extern const std::array<ToolButton, 19> kToolButtons;

// An entry of the drop-down: its caption there, and the menu entry that it stands for.
struct ToolEntry {
  const char* caption;
  CommandName command;
};
extern const std::array<ToolEntry, 6> kToolsDropDown;

inline constexpr int kSeparatorButton = 4;  // stands for every gap

// The buttons that are shown, by their indexes, from left to right. A button stands there at most once, a gap as
// often as wanted.
using ToolbarLayout = std::vector<int>;

ToolbarLayout DefaultToolbarLayout();
// As it is stored: the keys, each with a ";" behind it. ";" alone is a toolbar without buttons.
std::string LayoutText(const ToolbarLayout& layout);
// Unknown keys and repeated buttons are left out. "" gives the default layout.
ToolbarLayout LayoutFromText(std::string_view text);
// The buttons that a layout doesn't show, in their own order, with the gap ahead of them.
ToolbarLayout ButtonsBeside(const ToolbarLayout& layout);

}  // namespace qublet
