#include "platform/computer_name.h"

#include <unistd.h>

namespace qublet {

std::string ComputerName() {
  char name[256] = {};
  return gethostname(name, sizeof name - 1) == 0 ? name : "";
}

}  // namespace qublet
