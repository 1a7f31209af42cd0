#include "platform/program.h"

#include <filesystem>
#include <system_error>

#include "platform/linux/user_folders.h"

namespace qublet {
namespace {

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('\\'));
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
  std::string beside;
  ResumeNext([&] { beside = FolderOf(ExecutablePath(files)); });
  if (!beside.empty() && FilesCanBeMadeIn(files, beside)) return beside;

  const std::string data = DataFolder();
  if (data.empty()) throw Failure("this user has no home folder");
  MakeFolders(data + "/velmora");
  return files.FromNative(data + "/velmora");
}

}  // namespace qublet
