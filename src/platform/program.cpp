#include "platform/program.h"

#include <algorithm>

#include "platform/drive_form.h"

namespace qublet {
namespace {

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('\\'));
}

bool FilesCanBeMadeIn(const FileSystem& files, const std::string& folder) {
  return Guarded([&] { files.BeginReplacement(folder + "\\.qublet-probe"); });
}

bool MayHoldOwnFiles(const FileSystem& files, const std::string& folder) {
  bool others_can = true;
  ResumeNext([&] { others_can = OthersCanWriteIn(files, folder); });
  return !others_can && FilesCanBeMadeIn(files, folder);
}

}  // namespace

std::string PathFromArgument(const FileSystem& files, const std::string& argument) {
  const bool drive_form = HasDrive(argument) && (argument.size() == 2 || argument[2] == '\\');
  std::string path = drive_form ? argument : files.FromNative(argument);
  if (drive_form) std::replace(path.begin(), path.end(), '/', '\\');
  return WithCaseOfDisk(files, path);
}

std::string ProgramFolder(const FileSystem& files) {
  std::string beside;
  ResumeNext([&] { beside = FolderOf(ExecutablePath(files)); });
  if (!beside.empty() && MayHoldOwnFiles(files, beside)) return beside;
  return OwnFolderOfUser(files);
}

std::vector<std::string> CompanionFolders(const FileSystem& files) {
  std::vector<std::string> folders;
  ResumeNext([&] {
    const std::string beside = FolderOf(ExecutablePath(files));
    folders.push_back(beside);
    const std::string installed = InstalledDataFolder(beside);
    if (!installed.empty()) folders.push_back(installed);
  });
  return folders;
}

std::string FindCompanion(const FileSystem& files, const std::vector<std::string>& folders, const std::string& name) {
  for (const std::string& folder : folders) {
    const std::string path = folder + '\\' + name;
    const std::optional<unsigned> attributes = files.Attributes(path);
    if (!folder.empty() && attributes && (*attributes & kFolder) == 0) return path;
  }
  return "";
}

}  // namespace qublet
