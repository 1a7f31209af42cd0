#pragma once

#include <string>
#include <string_view>

namespace qublet {

// What this program is called and which version it is. The version stands in the project's CMakeLists.txt.
struct ProgramVersion {
  std::string_view stem = "QUBLET20";  // of the executable, and of the companion files beside it
  int major_number = QUBLET_VERSION_MAJOR;
  int minor_number = QUBLET_VERSION_MINOR;
  int revision = QUBLET_REVISION;
};

// The name that this version's settings are stored under ("QUBLET2021"): each minor version starts with its own.
std::string AppKey(const ProgramVersion& version = {});
// "[Velmora] M3U Playlist Editor v2.1b", the beginning of the window's caption and the title of every message.
std::string AppTitle(const ProgramVersion& version = {});

// Address of the maker's home page, without a "/" at its end. For tests $QUBLET_SITE stands in its place.
std::string Site();

}  // namespace qublet
