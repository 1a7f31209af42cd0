#include "platform/linux/drives.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/failure.h"
#include "platform/linux/native_text.h"
#include "platform/linux/user_folders.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// 0 to 25, or nothing for a character that names no drive.
std::optional<std::size_t> DriveNumber(char letter) {
  if (letter >= 'a' && letter <= 'z') return static_cast<std::size_t>(letter - 'a');
  if (letter >= 'A' && letter <= 'Z') return static_cast<std::size_t>(letter - 'A');
  return std::nullopt;
}

// The root folder becomes "", so that "/" and a name can be appended to every target.
std::string AsPrefix(std::string folder) {
  return folder == "/" ? "" : folder;
}

}  // namespace

std::string PlainNativePath(std::string_view native) {
  std::string plain;
  while (!native.empty()) {
    const std::size_t end = std::min(native.find('/'), native.size());
    const std::string_view name = native.substr(0, end);
    native.remove_prefix(std::min(end + 1, native.size()));
    if (name == "..") {
      plain.resize(plain.empty() ? 0 : plain.rfind('/'));
    } else if (!name.empty() && name != ".") {
      plain.append("/").append(name);
    }
  }
  return plain.empty() ? "/" : plain;
}

std::string Drives::FindFolder() {
  const std::string home = Environment("HOME");
  const std::string config = ConfigFolder();
  const std::string prefix = Environment("WINEPREFIX");

  const std::string candidates[] = {
      Environment("QUBLET_DOSDEVICES"),
      config.empty() ? "" : config + "/velmora/dosdevices",
      prefix.empty() ? "" : prefix + "/dosdevices",
      home.empty() ? "" : home + "/.wine/dosdevices",
  };
  for (const std::string& candidate : candidates) {
    std::error_code ignored;
    if (!candidate.empty() && fs::is_directory(candidate, ignored)) return candidate;
  }
  return "";
}

Drives::Drives(const std::string& folder) {
  if (!folder.empty()) ReadLinks(folder);
  auto& z = roots_['z' - 'a'];
  if (!z) {
    z = "";
    targets_.push_back({"", 'z'});
  }
  std::stable_sort(targets_.begin(), targets_.end(), [](const Target& a, const Target& b) {
    return a.folder.size() != b.folder.size() ? a.folder.size() > b.folder.size() : a.letter < b.letter;
  });
}

void Drives::ReadLinks(const std::string& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const auto number = name.size() == 2 && name[1] == ':' ? DriveNumber(name[0]) : std::nullopt;
    if (!number || roots_[*number]) continue;

    std::error_code dead;
    const fs::path real = fs::canonical(entry->path(), dead);
    if (dead || !fs::is_directory(real, dead)) continue;
    const char letter = static_cast<char>('a' + *number);
    roots_[*number] = AsPrefix(real.string());
    targets_.push_back({AsPrefix(real.string()), letter});

    const fs::path link = fs::read_symlink(entry->path(), dead);
    if (dead) continue;
    const fs::path written = fs::absolute(entry->path().parent_path() / link, dead);
    if (!dead) targets_.push_back({AsPrefix(PlainNativePath(written.string())), letter});
  }
}

const std::string& Drives::RootOf(char letter) const {
  const auto number = DriveNumber(letter);
  if (!number || !roots_[*number]) throw Failure(std::string("there is no drive ") + letter + ":");
  return *roots_[*number];
}

std::string Drives::TextOf(std::string_view native) const {
  if (native == "/") native = "";
  for (const Target& target : targets_) {
    if (!native.starts_with(target.folder)) continue;
    const std::string_view rest = native.substr(target.folder.size());
    if (!rest.empty() && rest.front() != '/') continue;
    const std::string text = std::string(1, target.letter) + ":" + TextFromNative(rest);
    return rest.empty() ? text + "\\" : text;
  }
  throw Failure("no drive leads there", std::string(native));
}

}  // namespace qublet
