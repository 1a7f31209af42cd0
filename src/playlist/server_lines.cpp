#include "playlist/server_lines.h"

#include "platform/server.h"

namespace qublet {

ServerLines::ServerLines(const FileSystem& files, const PlaylistLines& playlist) {
  for (const std::string& folder : {playlist.folder, playlist.linked_folder})
    if (!folder.empty()) own_.insert(ServerOf(files, folder));
}

bool ServerLines::MayBeLookedFor(const std::string& path) const {
  const std::string server = ServerIn(path);
  return server.empty() || own_.contains(server);
}

}  // namespace qublet
