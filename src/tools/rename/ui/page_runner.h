#pragma once

#include <functional>

#include "tools/rename/renamer.h"

namespace qublet {

// What the pages of the window work with: a command is run, and the window shows what comes of it.
struct PageRunner {
  Renamer& renamer;
  std::function<void(const std::function<void()>& command)> run;
};

}  // namespace qublet
