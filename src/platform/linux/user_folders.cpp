#include "platform/linux/user_folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

#include "platform/linux/links.h"

namespace qublet {

namespace {

std::string UserFolder(const char* variable, const char* in_home) {
  const char* folder = std::getenv(variable);
  if (folder != nullptr && *folder == '/') return folder;
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + in_home : "";
}

// `own` and the folders of a variable of the form "/a:/b".
std::vector<std::string> SearchPath(const std::string& own, const char* variable, const char* otherwise) {
  std::vector<std::string> folders;
  if (!own.empty()) folders.push_back(own);
  const char* list = std::getenv(variable);
  std::istringstream pieces(list != nullptr && *list != '\0' ? list : otherwise);
  for (std::string folder; std::getline(pieces, folder, ':');) {
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    if (folder.starts_with('/')) folders.push_back(folder);
  }
  return folders;
}

}  // namespace

std::string ConfigFolder() {
  return UserFolder("XDG_CONFIG_HOME", "/.config");
}

std::string DataFolder() {
  return UserFolder("XDG_DATA_HOME", "/.local/share");
}

std::vector<std::string> ConfigFolders() {
  return SearchPath(ConfigFolder(), "XDG_CONFIG_DIRS", "/etc/xdg");
}

std::vector<std::string> DataFolders() {
  return SearchPath(DataFolder(), "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

std::string TemporaryFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && *runtime == '/' && access(runtime, W_OK | X_OK) == 0) {
    const std::string folder = std::string(runtime) + "/velmora";
    if (Guarded([&] { MakeOwnFolder(folder); })) return folder;
  }
  const std::string cache = UserFolder("XDG_CACHE_HOME", "/.cache");
  if (cache.empty()) throw Failure("this user has no home folder");
  MakeOwnFolder(cache + "/velmora");
  return cache + "/velmora";
}

void MakeFolders(const std::string& native) {
  int error = 0;
  for (std::size_t end = 0; end != native.npos;) {
    end = native.find('/', end + 1);
    const bool made = mkdir(native.substr(0, end).c_str(), 0700) == 0;
    if (!made && error == 0 && errno != EEXIST) error = errno;
  }
  // What can't be made may be there all the same.
  if (Descriptor(open(native.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)).IsOpen()) return;
  if (error != 0) errno = error;
  FailWithErrno("make", native);
}

void MakeOwnFolder(const std::string& native) {
  MakeFolders(native);
  const Descriptor folder = OpenAt(AT_FDCWD, native, O_PATH | O_DIRECTORY);
  if (!IsThisUsers(StatusOf(folder))) throw Failure("belongs to another user", native);
}

}  // namespace qublet
