#include "settings/application.h"

namespace qublet {

std::string AppKey(const ProgramVersion& version) {
  return std::string(version.stem) + std::to_string(version.major_number) + std::to_string(version.minor_number);
}

std::string AppTitle(const ProgramVersion& version) {
  const std::string number = std::to_string(version.major_number) + '.' + std::to_string(version.minor_number);
  return "[Velmora] M3U Playlist Editor v" + number + 'b';
}

}  // namespace qublet
