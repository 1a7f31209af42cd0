#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace qublet {

// Which folder a drive letter means. That is what the system says, unless $QUBLET_DOSDEVICES names a folder with
// folders "a" to "z": such a letter then stands for such a folder, so that tests have drives of their own.
class Drives {
 public:
  // `folder` as in the variable, "" for none.
  explicit Drives(const std::string& folder);

  // Native folder of a drive, in any letter case, without a trailing "\". Throws Failure when there is no such drive.
  std::string RootOf(char letter) const;

  // Text form of a plain native path (see PlainNativePath): a lower-case drive letter, or "\\server\share".
  std::string TextOf(std::string_view native) const;

 private:
  std::map<char, std::string> stand_ins_;
  mutable std::atomic<std::uint32_t> known_{0};  // bit 0 for a:
};

// Whether a path begins with the two separators of a server.
bool NamesServer(std::string_view path);

// Whether a file of this name can't be reached by most programs: "con", "nul.txt", "lpt1" and their like stand for
// devices, with any extension and in any letter case.
bool IsDeviceName(std::string_view name);

// An absolute native path with "/", doubled separators, "." and ".." resolved as text, without a trailing "\" unless
// it is the root of a drive ("c:\"). The forms "\\?\c:\" and "\\?\UNC\server\share" are taken as what they mean.
// Throws Failure for other names of devices, and for a ":" behind the drive, which would name a stream inside a file.
std::string PlainNativePath(std::string_view absolute);

}  // namespace qublet
