#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

class TerminalStream;

// `GetPlatformId`: 2 on the consumer line of Windows, 3 on its server line and on Linux, 0 when the system can't say.
int GetPlatformId();

// What this process was given, in UTF-8, without the name of the program; `count` and `arguments` as main() has them.
// On Windows no shell has done it before, so patterns stand for the files that fit (see windows/command_words.h).
std::vector<std::string> CommandLineArguments(int count, char** arguments);

// A path in drive form with each name as the disk has it, where letter case makes no difference there; else as it is.
std::string WithCaseOfDisk(const FileSystem& files, const std::string& path);

// A path as people type it, native or in drive form ("c:\music"), in drive form. Throws Failure when no drive leads
// there. On Windows each name has the letter case of the disk.
std::string PathFromArgument(const FileSystem& files, const std::string& argument);

// For as long as it lives, UTF-8 that is printed to std::cout and std::cerr is shown as TerminalText where a person
// reads it, and goes into pipes and files byte for byte, line ends too, whatever is usual here. Nothing of the
// console is changed that would outlive this process.
// std::ios::sync_with_stdio comes first: it gives the streams new buffers.
class Utf8Console {
 public:
  Utf8Console();
  ~Utf8Console();
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  std::vector<std::unique_ptr<TerminalStream>> streams_;  // of those that a person reads
};

// The command line behind the program's name as it was typed, where the system hands it on like that; nothing where
// it comes in words.
std::optional<std::string> TypedCommandLine();

// Path of the running executable in drive form. Throws Failure.
std::string ExecutablePath(const FileSystem& files);

// Path of QUBLET20 as other programs may start it, in drive form: the running executable, on Windows the one of that
// name beside it. Throws Failure.
std::string WindowProgram(const FileSystem& files);

// The folder for the program's own files ("last.m3u", "tmp.m3u"), in drive form without a trailing "\": the
// executable's folder if files can be made there, else a folder of this user, made when missing. Throws Failure.
std::string ProgramFolder(const FileSystem& files);

// Where files that came with the program stand (tips, help, read-me), behind its own folder: beside the executable,
// then where an installation puts them; in drive form without a trailing "\". Whether there are such folders isn't
// looked at. Never throws.
std::vector<std::string> CompanionFolders(const FileSystem& files);

// Where an installation of a program that stands in this folder puts its data; "" where it puts them beside it.
std::string InstalledDataFolder(const std::string& beside);

// The first of `folders` that holds a file of this name ("ReadMe.txt", "help\\index.html"), as its whole path; ""
// when none does. Never throws.
std::string FindCompanion(const FileSystem& files, const std::vector<std::string>& folders, const std::string& name);

// A folder of this user for the program's own files, made when missing, in drive form. Throws Failure.
std::string OwnFolderOfUser(const FileSystem& files);

}  // namespace qublet
