#include "player/player_link.h"

#include "playlist/own_playlists.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {

bool PlayerLink::DetectPlayer() {
  bool found = false;
  ResumeNext([&] {
    const std::string path = TempPlaylist(program_folder_);
    if (!FileExists(services_.files, path)) WriteLinesToFile(services_.files.OwnFiles(), path, {"#"});
    const AssociatedProgram associated = services_.associations.ProgramFor(path);
    const std::string program = LowerCase(associated.path);
    const bool by_path = Contains(program, "studio") || Contains(program, "winamp");
    if (by_path && document_.WinampBookmarkFile.empty())
      document_.WinampBookmarkFile = GetFolderPath(program) + "winamp.bm";
    found = by_path || associated.player;
  });
  return found;
}

AssociatedProgram PlayerLink::PlayerProgram() const {
  return services_.associations.ProgramFor(TempPlaylist(program_folder_));
}

PlayerHandle PlayerLink::FindPlayerWindow() {
  PlayerWindow = services_.players.Find(PlayerProgram());
  return PlayerWindow;
}

}  // namespace qublet
