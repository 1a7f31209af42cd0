#pragma once

#include <string>
#include <vector>

namespace qublet {

// Where programs keep what this user sets: $XDG_CONFIG_HOME if it is an absolute path, else ~/.config; "" for a user
// without a home folder. It need not exist.
std::string ConfigFolder();

// Where programs keep what they make for this user: $XDG_DATA_HOME if it is an absolute path, else ~/.local/share; ""
// for a user without a home folder. It need not exist.
std::string DataFolder();

// The same with the folders of the whole system behind, the ones that count more first: $XDG_CONFIG_DIRS, else
// /etc/xdg; $XDG_DATA_DIRS, else /usr/local/share and /usr/share.
std::vector<std::string> ConfigFolders();
std::vector<std::string> DataFolders();

// A folder of this program's own, made when missing, for files that are needed for a while: below $XDG_RUNTIME_DIR,
// which is this user's alone, else below the user's cache. Throws Failure.
std::string TemporaryFolder();

// Makes a native folder and those above it where they are missing, for this user alone. Throws Failure.
void MakeFolders(const std::string& native);
// The same for a folder of the program's own. Throws Failure also for one that belongs to another user.
void MakeOwnFolder(const std::string& native);

}  // namespace qublet
