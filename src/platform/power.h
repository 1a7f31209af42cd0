#pragma once

#include <memory>

namespace qublet {

// The switch of this machine. Nothing is forced: whoever has unsaved work may hold the system back. Nothing is
// reported, and nothing here throws.
class Power {
 public:
  virtual ~Power() = default;

  // Gives this process the right to switch off, where a process has to take it.
  virtual void EnableShutdownPrivilege() = 0;
  // EnableShutdownPrivilege, then asks the system to switch off. Comes back within two seconds whatever it answers.
  virtual void ForceShutdown() = 0;
};

// The one of this machine.
std::unique_ptr<Power> OpenPower();

}  // namespace qublet
