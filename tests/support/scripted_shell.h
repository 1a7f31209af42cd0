#pragma once

#include <string>
#include <vector>

#include "platform/shell.h"

namespace qublet {

// Opens nothing; notes the paths that it was asked to open.
class ScriptedShell : public Shell {
 public:
  std::vector<std::string> opened;

  void Open(const std::string& path) override { opened.push_back(path); }
};

}  // namespace qublet
