#include "platform/program.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace qublet {
namespace {

std::string UserDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return std::string(data) + "/velmora";
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home != '/') throw Failure("this user has no home folder");
  return std::string(home) + "/.local/share/velmora";
}

bool FilesCanBeMadeIn(const FileSystem& files, const std::string& folder) {
  return Guarded([&] { files.BeginReplacement(folder + "\\.qublet-probe"); });
}

}  // namespace

int GetPlatformId() {
  return 3;
}

std::string ExecutablePath(const FileSystem& files) {
  std::error_code error;
  const std::filesystem::path place = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) throw Failure("the executable can't be found: " + error.message());
  return files.FromNative(place.string());
}

std::string ProgramFolder(const FileSystem& files) {
  const std::string executable = ExecutablePath(files);
  const std::string beside = executable.substr(0, executable.rfind('\\'));
  if (FilesCanBeMadeIn(files, beside)) return beside;

  const std::string own = UserDataFolder();
  std::error_code error;
  std::filesystem::create_directories(own, error);
  if (error) throw Failure("\"" + own + "\" can't be made: " + error.message());
  return files.FromNative(own);
}

}  // namespace qublet
