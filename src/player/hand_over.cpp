#include "player/hand_over.h"

#include "playlist/m3u_lines.h"
#include "playlist/own_playlists.h"

namespace qublet {

std::string WriteTempPlaylist(const Services& services, const std::string& program_folder, const Collection& paths) {
  const FileSystem& files = services.files.OwnFiles();
  const std::string own = TempPlaylist(program_folder);
  if (!WritePlainLines(files, own, paths)) return "";
  std::string playlist = own;
  ResumeNext([&] {
    const std::string folder = services.shell.HandOverFolder();
    const std::string twin = folder + "\\tmp.m3u8";
    if (!folder.empty() && WriteHandOver(files, twin, paths)) playlist = twin;
  });
  return playlist;
}

}  // namespace qublet
