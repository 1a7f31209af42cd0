#include "settings/about/about_texts.h"

namespace qublet {
namespace {

constexpr std::size_t kBlanksInFront = 29;
constexpr std::size_t kDots = 60;

}  // namespace

std::string AboutCaption(const ProgramVersion& version) {
  return "About " + AppTitle(version);
}

std::string VersionLine(const ProgramVersion& version) {
  return "Version: " + std::to_string(version.major_number) + '.' + std::to_string(version.minor_number) + '.' +
         std::to_string(version.revision);
}

std::string Credits() {
  return std::string(kBlanksInFront, ' ') +
         "Velmora M3U Playlist Editor   *   playlists for large collections of music   *   "
         "built on Qt, utf8proc and zlib   *   "
         "thanks to everyone who sent a file that no program could read, and to all who keep their music in order";
}

std::string Dots() {
  std::string dots;
  for (std::size_t i = 0; i < kDots; ++i) dots += i % 3 == 0 ? '.' : ' ';
  return dots;
}

}  // namespace qublet
