#include "platform/machine_values.h"

namespace qublet {

MachineValues OpenMachineValues() {
  return [](const std::string& /*key*/, const std::string& /*name*/) -> std::optional<MachineValue> { return {}; };
}

}  // namespace qublet
