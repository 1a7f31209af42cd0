#pragma once

#include "engine/recovery.h"
#include "engine/session.h"
#include "platform/feedback.h"
#include "playlist/document.h"
#include "playlist/playlist_files.h"

namespace qublet {

// How the program comes to its end: what is asked, and what is stored.
class Closing {
 public:
  Closing(const Document& document, PlaylistFiles& playlist_files, Recovery& recovery, Session& session,
          const Feedback& feedback)
      : document_(document),
        playlist_files_(playlist_files),
        recovery_(recovery),
        session_(session),
        feedback_(feedback) {}

  // As a user wants it, by the close box or the menu. False when he took it back: then nothing more is stored.
  bool Ask();
  // The two halves of it, for an end that comes later than the question.
  bool MayLeave() { return playlist_files_.PromptSaveFirst(); }
  void StoreAnswered();
  // As the system wants it, and nobody can be asked; in the middle of a command too, with the list as it is then.
  void StoreUnasked();
  // What comes first when the system wants it, whoever is asked then.
  void KeepList();

 private:
  const Document& document_;
  PlaylistFiles& playlist_files_;
  Recovery& recovery_;
  Session& session_;
  const Feedback& feedback_;
};

}  // namespace qublet
