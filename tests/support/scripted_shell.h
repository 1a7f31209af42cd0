#pragma once

#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/shell.h"

namespace qublet {

// Opens nothing; notes the paths that it was asked to open.
class ScriptedShell : public Shell {
 public:
  std::vector<std::string> opened;
  std::string folder;  // of the hand-over
  bool refuses = false;

  void Open(const std::string& path) override { opened.push_back(path); }
  std::string HandOverFolder() override {
    if (refuses) throw Failure("no such folder");
    return folder;
  }
};

}  // namespace qublet
