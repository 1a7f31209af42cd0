#pragma once

#include <functional>

namespace qublet {

// Runs what a command of the editor's window does, on what the boxes hold, and shows what comes of it.
using CommandRunner = std::function<void(const std::function<void()>& command)>;

}  // namespace qublet
