#include "app/toolbar_layout.h"

#include <algorithm>

namespace qublet {

const std::array<ToolButton, 19> kToolButtons{{
    {""},
    {"New", "New Playlist...", "new", CommandName("MFileNew")},
    {"Open", "Open Playlist...", "open", CommandName("MFileOpen")},
    {"Save", "Save Playlist...", "save", CommandName("MFileSave")},
    {"Separator"},
    {"Add Items", "Add Files...", "add", CommandName("MEditAddDir")},
    {"Remove Items", "Remove selected Files...", "remove", CommandName("MEditRemove")},
    {"Separator"},
    {"Move Items Up", "Move selected Files up...", "move-up", CommandName("MEditMoveUp")},
    {"Move Items Down", "Move selected Files down...", "move-down", CommandName("MEditMoveDown")},
    {"Separator"},
    {"Play Items", "Play the selected Files...", "play", CommandName("MEditPlaySel")},
    {"Preview Playlist", "Preview the Playlist...", "preview", CommandName("MEditPlayList")},
    {"Edit Id3 Tag", "Get the File info/Edit the ID3 Tag...", "tag", CommandName("MEditId3")},
    {"Separator"},
    {"Tools Drop Down", "Special Functions", "tools"},
    {"Separator"},
    {"Help", "View the Help file...", "help", CommandName("MHelpHelp")},
    {"Separator"},
}};

const std::array<ToolEntry, 6> kToolsDropDown{{
    {"Search Playlist...", "MToolsSearch"},
    {"Purge Playlist...", "MToolsFilter"},
    {"Rename Files...", "MToolsRename"},
    {"Generate Report Wizard...", "MToolsReport"},
    {"Autocreate Playlists Wizard...", "MToolsM3UWiz"},
    {"Create MP3 CD-ROM Wizard...", "MToolsMP3CDWiz"},
}};

namespace {

bool Holds(const ToolbarLayout& layout, int button) {
  return std::ranges::find(layout, button) != layout.end();
}

// 0 for a key that no button bears.
int ButtonOfKey(std::string_view key) {
  const auto* const button =
      std::find_if(kToolButtons.begin() + 1, kToolButtons.end(), [&](const ToolButton& b) { return b.key == key; });
  return button == kToolButtons.end() ? 0 : static_cast<int>(button - kToolButtons.begin());
}

}  // namespace

ToolbarLayout DefaultToolbarLayout() {
  ToolbarLayout layout;
  for (std::size_t i = 1; i < kToolButtons.size(); ++i) {
    layout.push_back(kToolButtons[i].IsSeparator() ? kSeparatorButton : static_cast<int>(i));
  }
  return layout;
}

std::string LayoutText(const ToolbarLayout& layout) {
  std::string text;
  for (const int button : layout) text.append(kToolButtons[static_cast<std::size_t>(button)].key) += ';';
  return text.empty() ? ";" : text;
}

ToolbarLayout LayoutFromText(std::string_view text) {
  if (text.empty()) return DefaultToolbarLayout();
  ToolbarLayout layout;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(';'), text.size());
    const int button = ButtonOfKey(text.substr(0, end));
    if (button == kSeparatorButton || (button != 0 && !Holds(layout, button))) layout.push_back(button);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return layout;
}

ToolbarLayout ButtonsBeside(const ToolbarLayout& layout) {
  ToolbarLayout beside{kSeparatorButton};
  for (const int button : DefaultToolbarLayout()) {
    if (button != kSeparatorButton && !Holds(layout, button)) beside.push_back(button);
  }
  return beside;
}

}  // namespace qublet
