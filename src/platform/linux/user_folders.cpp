#include "platform/linux/user_folders.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/linux/replacement.h"

namespace qublet {

std::string ConfigFolder() {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && *config == '/') return config;
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + "/.config" : "";
}

void MakeFolders(const std::string& native) {
  std::error_code error;
  std::filesystem::create_directories(native, error);
  if (error) throw Failure("\"" + native + "\" can't be made: " + error.message());
}

void WriteWholeFile(const std::string& native, const std::string& content) {
  Replacement replacement(native);
  replacement.Write({reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
  replacement.Commit();
}

}  // namespace qublet
