#include "platform/shutdown_reason.h"

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {

ShutdownReason::ShutdownReason(std::uintptr_t window, const std::string& text) : window_(window) {
  ShutdownBlockReasonCreate(reinterpret_cast<HWND>(window_), WideText(text).c_str());
}

ShutdownReason::~ShutdownReason() {
  ShutdownBlockReasonDestroy(reinterpret_cast<HWND>(window_));
}

}  // namespace qublet
