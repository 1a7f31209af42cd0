#pragma once

#include <string>

#include "platform/services.h"

namespace qublet {

// The value of this name as text: a text up to its first zero, a number in decimal, bytes as "&h" and two digits
// each. False when there is no such value; `KeyVal` is "" then.
bool GetKeyValue(const MachineValues& values, const std::string& KeyName, const std::string& SubKeyRef,
                 std::string& KeyVal);

// Starts the system's tool that tells what the machine is like, or says that there is none.
void StartSysInfo(const Services& services);

}  // namespace qublet
