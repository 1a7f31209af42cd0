#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// The drives of this user: a folder of links named "c:", "d:" and so on, as players under a compatibility layer keep
// it, so that a playlist saved here means the same files there. "z:" is the root folder unless the folder says
// otherwise.
class Drives {
 public:
  // Reads the links of a folder; "" or a folder that can't be read gives "z:" alone. Dead links and links to
  // something else than a folder are left out.
  explicit Drives(const std::string& folder);

  // The folder of links of this user: the first that exists of $QUBLET_DOSDEVICES,
  // $XDG_CONFIG_HOME/velmora/dosdevices, $WINEPREFIX/dosdevices and ~/.wine/dosdevices; "" if there is none.
  static std::string FindFolder();

  // Native folder of a drive, in any letter case, without a trailing "/" (so "" for the root folder). Throws Failure
  // when there is no such drive.
  const std::string& RootOf(char letter) const;

  // Text form of an absolute native path that holds no "." or "..": the drive with the longest matching target wins.
  // Throws Failure when no drive leads there.
  std::string TextOf(std::string_view native) const;

 private:
  // A native path that a drive leads to. A link reached through other links has two: as written and as it is.
  struct Target {
    std::string folder;
    char letter = 'z';
  };

  void ReadLinks(const std::string& folder);

  std::array<std::optional<std::string>, 26> roots_;
  std::vector<Target> targets_;  // longest first
};

// An absolute native path with "//", "." and ".." resolved as text, without a trailing "/" (so "/" for the root
// folder).
std::string PlainNativePath(std::string_view native);

}  // namespace qublet
