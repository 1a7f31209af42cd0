#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// The program that opens a kind of file.
struct AssociatedProgram {
  std::string path;     // drive form, "" when there is none
  std::string id;       // what this system calls it ("mpv" on Linux); "" where programs have no such name
  bool player = false;  // the system knows it as a player of sound
  // Native path of what runs then, where that tells the program: "" when other programs run by it too (an
  // interpreter).
  std::string executable = {};
};

// Which program opens which files, as this user has it set. Asked anew each time: it may change while we run.
class Associations {
 public:
  virtual ~Associations() = default;
  // By the extension of `path`, whether the file is there or not. Known are the kinds of file that this program deals
  // with; any other has no program. Never throws, starts no process.
  virtual AssociatedProgram ProgramFor(const std::string& path) const = 0;

  // Its path, "" when there is none.
  std::string FindAssociatedProgram(const std::string& path) const { return ProgramFor(path).path; }
};

// Those of this user on this machine; `files` must outlive them.
std::unique_ptr<Associations> OpenAssociations(const FileSystem& files);

}  // namespace qublet
