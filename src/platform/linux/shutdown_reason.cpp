#include "platform/shutdown_reason.h"

namespace qublet {

// Session managers know that a dialog waits.
ShutdownReason::ShutdownReason(std::uintptr_t window, const std::string& /*text*/) : window_(window) {}
ShutdownReason::~ShutdownReason() = default;

}  // namespace qublet
