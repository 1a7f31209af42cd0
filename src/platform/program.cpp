#include "platform/program.h"

namespace qublet {
namespace {

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('\\'));
}

bool FilesCanBeMadeIn(const FileSystem& files, const std::string& folder) {
  return Guarded([&] { files.BeginReplacement(folder + "\\.qublet-probe"); });
}

}  // namespace

std::string ProgramFolder(const FileSystem& files) {
  std::string beside;
  ResumeNext([&] { beside = FolderOf(ExecutablePath(files)); });
  if (!beside.empty() && FilesCanBeMadeIn(files, beside)) return beside;
  return OwnFolderOfUser(files);
}

}  // namespace qublet
