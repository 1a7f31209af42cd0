#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// `GetPlatformId`: 2 on the consumer line of Windows, 3 on its server line and on Linux, 0 when the system can't say.
int GetPlatformId();

// What this process was given, in UTF-8, without the name of the program; `count` and `arguments` as main() has them.
std::vector<std::string> CommandLineArguments(int count, char** arguments);

// For as long as it lives what is printed is shown as UTF-8, and a line end is one byte, whatever is usual here.
class Utf8Console {
 public:
  Utf8Console();
  ~Utf8Console();
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  unsigned page_before_ = 0;  // 0 for none
};

// Path of the running executable in drive form. Throws Failure.
std::string ExecutablePath(const FileSystem& files);

// The folder for the program's own files ("last.m3u", "tmp.m3u"), in drive form without a trailing "\": the
// executable's folder if files can be made there, else a folder of this user, made when missing. Throws Failure.
std::string ProgramFolder(const FileSystem& files);

// A folder of this user for the program's own files, made when missing, in drive form. Throws Failure.
std::string OwnFolderOfUser(const FileSystem& files);

}  // namespace qublet
