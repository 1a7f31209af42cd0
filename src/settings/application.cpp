#include "settings/application.h"

#include <cstdlib>

namespace qublet {

std::string AppKey(const ProgramVersion& version) {
  return std::string(version.stem) + std::to_string(version.major_number) + std::to_string(version.minor_number);
}

std::string AppTitle(const ProgramVersion& version) {
  const std::string number = std::to_string(version.major_number) + '.' + std::to_string(version.minor_number);
  return "[Velmora] M3U Playlist Editor v" + number + 'b';
}

std::string Site() {
  const char* other = std::getenv("QUBLET_SITE");
  return other != nullptr ? other : QUBLET_SITE;
}

}  // namespace qublet
