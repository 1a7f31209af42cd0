#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/services.h"
#include "playlist/document.h"

namespace qublet {

// What is played.
enum PreviewMode : std::int16_t {
  kPlayList = 0,      // all rows
  kPlaySelected = 1,  // the selected rows
  kPlayFolder = 2,    // all audio files of the selected rows' folders
  kPlayFrom = 3,      // the rows from the first selected one to the end
};

// Plays rows of the list in whatever program opens playlists.
class Preview {
 public:
  Preview(Document& document, const Services& services, std::string program_folder)
      : document_(document), services_(services), program_folder_(std::move(program_folder)) {}

  // Writes the files of that mode, those that are there, to "tmp.m3u" and has it opened. Where players don't read the
  // program's own form they are handed its twin, "tmp.m3u8" in the hand-over folder. When "tmp.m3u" can't be written
  // the files are opened one by one. With no row selected `mode` becomes kPlayList. A message says when no file is
  // there; an empty list does nothing. Both give whether a program was started.
  bool PrevM3U(std::int16_t& mode);
  bool Play(PreviewMode mode);

 private:
  struct Selection;
  Selection Selected(bool folders) const;
  void FillFileArray(std::int16_t mode, const Selection& selection);
  bool HandOver();  // whether a program was started

  Document& document_;
  Services services_;
  std::string program_folder_;
};

}  // namespace qublet
