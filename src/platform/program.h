#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// `GetPlatformId`: 2 on the consumer line of Windows, 3 on its server line and on Linux, 0 when the system can't say.
int GetPlatformId();

// Path of the running executable in drive form. Throws Failure.
std::string ExecutablePath(const FileSystem& files);

// The folder for the program's own files ("last.m3u", "tmp.m3u"), in drive form without a trailing "\": the
// executable's folder if files can be made there, else a folder of this user, made when missing. Throws Failure.
std::string ProgramFolder(const FileSystem& files);

}  // namespace qublet
