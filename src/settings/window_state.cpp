#include "settings/window_state.h"

#include "platform/failure.h"
#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

void Copy(std::int32_t value, std::int16_t& field) {
  ResumeNext([&] { field = ToInteger16(value); });
}

}  // namespace

void CopyWindowState(const WindowState& window, AppSettings& settings) {
  Copy(window.top, settings.T);
  Copy(window.left, settings.L);
  Copy(window.width, settings.W);
  Copy(window.height, settings.H);
  for (std::size_t i = 0; i < kStoredColumns; ++i) {
    if (window.column_widths[i] != 0) Copy(window.column_widths[i], settings.TV[i]);
  }
  settings.TA = window.toolbar_shown;
  settings.SA = window.status_bar_shown;
}

}  // namespace qublet
