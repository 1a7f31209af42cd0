#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What other programs do for us. A program that is started runs on by itself: nobody waits for it, and no result is
// shown.
class Shell {
 public:
  virtual ~Shell() = default;
  // Opens a file or folder (drive form) with the program that it is associated with. False when no program could be
  // started. Never throws.
  virtual bool Open(const std::string& path) = 0;
  // The same for one file of a list to be heard. On Linux nothing but .mp3, .ogg, .wav and .wma is: a list may name
  // what another opener would run. Never throws.
  virtual bool OpenAudio(const std::string& path) { return Open(path); }
  // Whether this system itself runs that file (drive form) as a program: it is there, may be executed, and isn't made
  // for another system. Never throws.
  virtual bool CanStart(const std::string& program) const = 0;
  // Starts it with one word behind its name, which reaches it as it is whatever stands in it. A file that this system
  // doesn't run is opened as by Open, without the word. Never throws.
  virtual void Start(const std::string& program, const std::string& argument) = 0;
  // Opens an address of the web ("http://...", "https://...") in the program for those. What is neither is opened by
  // nothing. Never throws.
  virtual void OpenAddress(const std::string& address) = 0;
  // Shows a folder (drive form) in the file manager, "" the one that it chooses. Never throws.
  virtual void Explore(const std::string& folder) = 0;
  // Opens the system's search for files, starting at a folder (drive form). Where there is no such program, shows the
  // folder. Never throws.
  virtual void Find(const std::string& folder) = 0;
  // Shows what the system knows of a file (drive form): size, times, rights. Where nobody shows that, its folder
  // comes up. Never throws.
  virtual void ShowFileProperties(const std::string& path) = 0;
  // Opens the system's volume control. False when there is none. Never throws.
  virtual bool OpenVolumeControl() = 0;
  // Where a playlist stands that other programs are to open, in drive form without a trailing "\": a folder of this
  // user for playlists in this system's own form, made when missing. "" where programs read the program's own form as
  // it is. Throws Failure.
  virtual std::string HandOverFolder() = 0;
};

// Makes an id for each start, by which the window system knows that the user asked for the program's window; "" where
// it has none.
using StartupIds = std::function<std::string()>;

// Whether a text is an address of the web. Anything else could start a program.
inline bool IsWebAddress(const std::string& text) {
  return text.starts_with("http://") || text.starts_with("https://");
}

// The one of this machine; `files` must outlive it.
std::unique_ptr<Shell> OpenShell(const FileSystem& files, StartupIds startup_ids = {});

}  // namespace qublet
