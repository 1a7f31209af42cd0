#pragma once

#include <functional>

#include "tools/purge/purger.h"

namespace qublet {

// What the pages of the window work with: what the user has changed in the view is shown everywhere.
struct PurgeRunner {
  Purger& purger;
  std::function<void()> render;
  // Runs what may take long.
  std::function<void(void (Purger::*step)())> run_long;
};

}  // namespace qublet
