#pragma once

#include <array>
#include <cstdint>

#include "settings/app_settings.h"

namespace qublet {

// How the main window stands at the moment.
struct WindowState {
  std::int32_t top = 0;  // in twips, 1/1440 inch
  std::int32_t left = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::array<std::int32_t, kStoredColumns> column_widths{};  // 0 for a hidden column
  bool toolbar_shown = false;
  bool status_bar_shown = false;
};

// Takes the window's state into the record. The width of a hidden column stays, so that the column comes back as it
// was, and so does a value in whose place the window has one beyond 16 bits.
void CopyWindowState(const WindowState& window, AppSettings& settings);

}  // namespace qublet
