#pragma once

#include <filesystem>

namespace qublet {

// Whether a file or folder that is there shuts everybody else out, as the program's own do. Windows has other means.
inline bool IsForThisUserAlone(const std::filesystem::path& place) {
  using std::filesystem::perms;
  std::error_code error;
  [[maybe_unused]] const perms rights = std::filesystem::status(place, error).permissions();
#ifdef _WIN32
  return !error;
#else
  return !error && (rights & (perms::group_all | perms::others_all)) == perms::none;
#endif
}

}  // namespace qublet
