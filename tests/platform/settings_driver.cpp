// Saves the keys "0", "1", ... of section "SSE" in one step, for the test of an interrupted save; gives 1 on a
// failure.
//
//   settings_driver COUNT VALUE

#include <string>

#include "platform/failure.h"
#include "platform/settings_store.h"

int main(int count, char** arguments) {
  if (count != 3) return 2;
  std::vector<qublet::Setting> settings;
  for (int i = 0; i < std::stoi(arguments[1]); ++i) settings.push_back({"SSE", std::to_string(i), arguments[2]});
  return qublet::Guarded([&] { qublet::OpenSettingsStore()->SaveSettings("QUBLET2021", settings); }) ? 0 : 1;
}
