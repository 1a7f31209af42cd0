#include "platform/program.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include "platform/linux/user_folders.h"
#include "platform/terminal_buffer.h"

namespace qublet {

int GetPlatformId() {
  return 3;
}

std::vector<std::string> CommandLineArguments(int count, char** arguments) {
  return {arguments + 1, arguments + count};
}

std::optional<std::string> TypedCommandLine() {
  return std::nullopt;
}

Utf8Console::Utf8Console() {
  for (const auto& [stream, number] : {std::pair{&std::cout, STDOUT_FILENO}, std::pair{&std::cerr, STDERR_FILENO}}) {
    if (isatty(number) == 0) continue;
    streams_.push_back(std::make_unique<TerminalStream>(*stream, [to = stream->rdbuf()](const std::string& text) {
      const auto size = static_cast<std::streamsize>(text.size());
      return to->sputn(text.data(), size) == size && to->pubsync() == 0;
    }));
  }
}

Utf8Console::~Utf8Console() = default;

std::string WithCaseOfDisk(const FileSystem& /*files*/, const std::string& path) {
  return path;
}

std::string ExecutablePath(const FileSystem& files) {
  std::error_code error;
  const std::filesystem::path place = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) throw Failure("the executable can't be found", ReasonOf(error));
  return files.FromNative(place.string());
}

std::string WindowProgram(const FileSystem& files) {
  return ExecutablePath(files);
}

// "/usr/share/qublet" for a program in "/usr/bin".
std::string InstalledDataFolder(const std::string& beside) {
  return beside.substr(0, beside.rfind('\\')) + "\\share\\qublet";
}

std::string OwnFolderOfUser(const FileSystem& files) {
  const std::string data = DataFolder();
  if (data.empty()) throw Failure("this user has no home folder");
  MakeFolders(data + "/velmora");
  return files.FromNative(data + "/velmora");
}

}  // namespace qublet
