#include "platform/windows/absent_places.h"

#include "platform/drive_form.h"
#include "platform/windows/drives.h"

namespace qublet {
namespace {

// "e:" or "\\server\share", "" for another path.
std::string RootOf(const std::string& path) {
  if (HasDrive(path)) return {static_cast<char>(path[0] | 0x20), ':'};
  if (!NamesServer(path)) return "";
  const std::size_t server = path.find_first_of("\\/", 2);
  return server == path.npos ? path : path.substr(0, path.find_first_of("\\/", server + 1));
}

}  // namespace

std::string UnreachableRoots::Of(const std::string& path) {
  const std::string root = RootOf(path);
  if (root.empty()) return "";
  const auto [place, fresh] = absent_.try_emplace(root, false);
  if (fresh) place->second = !files_.Attributes(root + "\\");
  return place->second ? root : "";
}

}  // namespace qublet
