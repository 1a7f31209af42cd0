#include "platform/windows/drives.h"

#include <algorithm>

#include "platform/drive_form.h"
#include "platform/failure.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

// Drive letters, as anything of a letter's case.
char Small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
}

bool IsFolder(const std::string& native) {
  const DWORD attributes = GetFileAttributesW(WideText(native).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Takes the first name off a path, with the separators ahead of it; "" at the end.
std::string_view TakeName(std::string_view& path) {
  while (!path.empty() && IsSeparator(path.front())) path.remove_prefix(1);
  const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
  const std::string_view name = path.substr(0, end);
  path.remove_prefix(end);
  return name;
}

bool SameButForCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Small(x) == Small(y); });
}

// Takes what stands for a root off an absolute path: "c:" or "\\server\share".
std::string TakeRoot(std::string_view& path) {
  if (HasDrive(path)) {
    const std::string drive(path.substr(0, 2));
    path.remove_prefix(2);
    return drive;
  }
  const std::string_view server = TakeName(path);
  if (server == "?") {
    if (path.size() > 3 && HasDrive(path.substr(1))) {
      path.remove_prefix(1);
      return TakeRoot(path);
    }
    if (!SameButForCase(TakeName(path), "UNC")) throw Failure("a path names a device");
    const std::string_view real = TakeName(path);
    return "\\\\" + std::string(real) + "\\" + std::string(TakeName(path));
  }
  const std::string_view share = TakeName(path);
  if (server == "." || server.empty() || share.empty()) throw Failure("a path names a device");
  return "\\\\" + std::string(server) + "\\" + std::string(share);
}

}  // namespace

bool NamesServer(std::string_view path) {
  return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

bool IsDeviceName(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  while (stem.ends_with(' ')) stem.remove_suffix(1);
  for (const std::string_view device : {"con", "prn", "aux", "nul", "conin$", "conout$"})
    if (SameButForCase(stem, device)) return true;
  const bool port = SameButForCase(stem.substr(0, 3), "com") || SameButForCase(stem.substr(0, 3), "lpt");
  const std::string_view number = stem.substr(std::min<std::size_t>(3, stem.size()));
  const bool digit = number.size() == 1 && number[0] >= '1' && number[0] <= '9';
  return port && (digit || number == "\u00B9" || number == "\u00B2" || number == "\u00B3");
}

std::string PlainNativePath(std::string_view absolute) {
  std::string plain = TakeRoot(absolute);
  const std::size_t root = plain.size();
  if (absolute.find(':') != absolute.npos) throw Failure("a path names a stream of a file");
  for (std::string_view name = TakeName(absolute); !name.empty(); name = TakeName(absolute)) {
    if (name == "..") {
      if (plain.size() > root) plain.resize(plain.rfind('\\'));
    } else if (name != ".") {
      plain.append("\\").append(name);
    }
  }
  return plain.size() == root ? plain + '\\' : plain;
}

Drives::Drives(const std::string& folder) {
  if (folder.empty()) return;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    const std::string place = folder + '\\' + letter;
    if (IsFolder(place)) stand_ins_[letter] = PlainNativePath(place);
  }
}

std::string Drives::RootOf(char letter) const {
  letter = Small(letter);
  if (const auto stand_in = stand_ins_.find(letter); stand_in != stand_ins_.end()) return stand_in->second;
  const std::uint32_t bit = IsDriveLetter(letter) ? 1u << (letter - 'a') : 0;
  // Drives come while we run. One that has gone is found out by whoever opens something there.
  if ((known_ & bit) == 0) known_ = GetLogicalDrives();
  if ((known_ & bit) == 0) throw Failure(std::string("there is no drive ") + letter + ":");
  return {letter, ':'};
}

std::string Drives::TextOf(std::string_view native) const {
  for (const auto& [letter, folder] : stand_ins_) {
    if (!SameButForCase(native.substr(0, folder.size()), folder)) continue;
    const std::string_view rest = native.substr(folder.size());
    if (rest.empty()) return {letter, ':', '\\'};
    if (rest.front() == '\\') return std::string{letter, ':'}.append(rest);
  }
  std::string text(native);
  text[0] = Small(text[0]);
  return text;
}

}  // namespace qublet
