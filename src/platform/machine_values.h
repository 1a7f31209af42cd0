#pragma once

#include <functional>
#include <optional>
#include <string>

namespace qublet {

// A value that a program has left for the whole machine.
struct MachineValue {
  enum class Kind { kText, kNumber, kBytes, kOther };

  Kind kind = Kind::kOther;
  std::string bytes;  // text in UTF-8, zeros in it included; a number's four, the lowest first
};

// The value of this name under a key ("SOFTWARE\\..."); nothing when there is none, or it holds more than 1024
// bytes, or this system has no such store. Never throws.
using MachineValues = std::function<std::optional<MachineValue>(const std::string& key, const std::string& name)>;

MachineValues OpenMachineValues();

}  // namespace qublet
