#include "platform/linux/absent_places.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <system_error>

#include "platform/drive_form.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

using Fields = std::vector<std::string>;

// "\040" stands for a blank, and so on.
std::string WithoutEscapes(std::string_view field) {
  const auto octal = [&](std::size_t at) { return at < field.size() && field[at] >= '0' && field[at] <= '7'; };
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] == '\\' && octal(i + 1) && octal(i + 2) && octal(i + 3)) {
      text += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0'));
      i += 3;
    } else {
      text += field[i];
    }
  }
  return text;
}

std::vector<Fields> LinesOf(std::string_view text) {
  std::vector<Fields> lines;
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    Fields fields;
    for (std::string word; words >> word;) fields.push_back(WithoutEscapes(word));
    lines.push_back(std::move(fields));
  }
  return lines;
}

// Where a path leads, every link followed, whether or not something is there.
fs::path WithLinksFollowed(fs::path path) {
  constexpr int kMostLinks = 40;
  for (int links = 0; links < kMostLinks; ++links) {
    std::error_code error;
    const fs::path plain = fs::weakly_canonical(path, error);
    if (error) return path;
    path = plain;
    // What is left is a link to what isn't there.
    fs::path place;
    auto name = path.begin();
    while (name != path.end() && !fs::is_symlink(fs::symlink_status(place / *name, error))) place /= *name++;
    if (name == path.end()) return path;
    place /= fs::read_symlink(place / *name, error);
    if (error) return path;
    while (++name != path.end()) place /= *name;
    path = place;
  }
  return path;
}

// Mount points that stand for something else than the root. What is mounted at its first use isn't there before.
std::set<std::string> MountPoints(std::string_view mountinfo) {
  std::set<std::string> places;
  for (const Fields& fields : LinesOf(mountinfo)) {
    const auto dash = std::find(fields.begin(), fields.end(), "-");
    const bool waits = dash != fields.end() && dash + 1 != fields.end() && dash[1] == "autofs";
    if (fields.size() > 4 && !waits) places.insert(fields[4]);
  }
  return places;
}

std::string TextOf(const char* file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string WithoutSlash(std::string place) {
  while (place.size() > 1 && place.ends_with('/')) place.pop_back();
  return place;
}

}  // namespace

UnmountedPlaces::UnmountedPlaces(const FileSystem& files, std::string_view fstab, std::string_view mountinfo)
    : files_(files) {
  const std::set<std::string> mounted = MountPoints(mountinfo);
  for (const Fields& fields : LinesOf(fstab)) {
    if (fields.size() < 2 || fields[0].starts_with('#') || !fields[1].starts_with('/')) continue;
    const std::string place = WithoutSlash(fields[1]);
    const std::string real = WithLinksFollowed(place).string();
    if (place != "/" && !mounted.contains(place) && !mounted.contains(real)) unmounted_.push_back(real);
  }
  std::ranges::stable_sort(unmounted_, [](const auto& a, const auto& b) { return a.size() > b.size(); });
}

std::string UnmountedPlaces::Of(const std::string& path) {
  if (!HasDrive(path)) return "";
  std::string native;
  const std::string drive{static_cast<char>(path[0] | 0x20), ':'};
  if (!files_.Attributes(drive + "\\")) return drive;
  if (unmounted_.empty() || !Guarded([&] { native = files_.ToNative(path); })) return "";
  const std::string folder = native.substr(0, native.rfind('/') + 1);
  if (folder != last_folder_) {
    last_folder_ = folder;
    last_place_.clear();
    ResumeNext([&] { last_place_ = PlaceOfFolder(folder); });
  }
  return last_place_;
}

std::string UnmountedPlaces::PlaceOfFolder(const std::string& native) const {
  const std::string folder = WithLinksFollowed(native).string() + "/";
  const auto place = std::ranges::find_if(
      unmounted_, [&](const std::string& unmounted) { return folder.starts_with(unmounted + "/"); });
  return place == unmounted_.end() ? "" : *place;
}

std::unique_ptr<AbsentPlaces> FindUnmountedPlaces(const FileSystem& files) {
  const std::string mountinfo = TextOf("/proc/self/mountinfo");
  // Where the system doesn't say what is mounted, nothing counts as missing.
  return std::make_unique<UnmountedPlaces>(files, mountinfo.empty() ? "" : TextOf("/etc/fstab"), mountinfo);
}

}  // namespace qublet
