#pragma once

#include "platform/shell.h"

namespace qublet {

// Other programs by way of the desktop.
class QtShell : public Shell {
 public:
  explicit QtShell(const FileSystem& files) : files_(files) {}
  void Open(const std::string& path) override;

 private:
  const FileSystem& files_;
};

}  // namespace qublet
