#pragma once

#include <string>
#include <utility>

#include "platform/services.h"
#include "playlist/document.h"

namespace qublet {

// What the program knows of the player that runs beside it. The player is the program that opens playlists.
class PlayerLink {
 public:
  PlayerLink(Document& document, const Services& services, std::string program_folder)
      : document_(document), services_(services), program_folder_(std::move(program_folder)) {}

  bool PlayerAssociated = false;  // set once, at the start of the program
  PlayerHandle PlayerWindow;      // what FindPlayerWindow last gave

  // Whether the program that opens playlists is a player that we can work beside: by its path ("studio" or "winamp"
  // anywhere in it, in any case), which also says where its bookmark file is, or by what the system knows of it.
  // Makes "tmp.m3u" when it is missing, so that there is a file to ask about.
  bool DetectPlayer();

  // The program that opens playlists. Any thread may ask.
  AssociatedProgram PlayerProgram() const;
  // The player if it runs, "" if not; kept in PlayerWindow.
  PlayerHandle FindPlayerWindow();

 private:
  Document& document_;
  Services services_;
  std::string program_folder_;
};

}  // namespace qublet
