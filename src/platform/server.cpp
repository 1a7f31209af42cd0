#include "platform/server.h"

#include <algorithm>

#include "platform/drive_form.h"

namespace qublet {
namespace {

// Takes the first name off, with the separators ahead of it.
std::string TakeName(std::string_view& path) {
  while (!path.empty() && IsSeparator(path.front())) path.remove_prefix(1);
  std::string name(path.substr(0, path.find_first_of("\\/")));
  path.remove_prefix(name.size());
  std::ranges::transform(name, name.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
  return name;
}

}  // namespace

std::string ServerIn(std::string_view path) {
  if (path.size() < 2 || !IsSeparator(path[0]) || !IsSeparator(path[1])) return "";
  std::string server = TakeName(path);
  if (server != "?") return server;
  const std::string place = TakeName(path);
  if (place.size() == 2 && HasDrive(place)) return "";
  return place == "unc" ? TakeName(path) : server;
}

}  // namespace qublet
