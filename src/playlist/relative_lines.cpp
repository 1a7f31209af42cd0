#include "playlist/relative_lines.h"

#include <algorithm>

#include "platform/drive_form.h"
#include "playlist/expansion.h"
#include "playlist/paths/collections.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// Behind the drive.
std::vector<std::string> NamesIn(const std::string& path) {
  if (path.size() <= 3) return {};
  return Split(path.substr(3), '\\');
}

bool IsStep(const std::string& name) {
  return !name.empty() && name != "." && name != "..";
}

// Whether a folder is in the form that all full paths have, so that its names can be counted.
bool IsPlain(const std::string& path) {
  const std::vector<std::string> names = NamesIn(path);
  return HasDrive(path) && path.substr(2, 1) == "\\" && std::ranges::all_of(names, IsStep);
}

}  // namespace

RelativeLines::RelativeLines(const FileSystem& files, const std::string& playlist, bool parents)
    : files_(files), folder_(FolderOfPlaylist(playlist)), parents_(parents), names_(NamesIn(folder_)) {
  const auto linked = files.LinkedFile(playlist);
  if (linked && FolderOfPlaylist(*linked) != folder_) linked_folder_ = FolderOfPlaylist(*linked);
}

std::optional<std::string> RelativeLines::LineOf(const std::string& item) {
  if (auto line = Below(item)) return line;
  return parents_ ? Above(item) : std::nullopt;
}

std::optional<std::string> RelativeLines::Below(const std::string& item) const {
  std::string line = RelativeLine(item, folder_);
  if (line != item) return line;
  if (linked_folder_.empty()) return std::nullopt;
  line = RelativeLine(item, linked_folder_);
  // Who reads the line looks into the folder of the name first.
  if (line == item || files_.Exists(folder_ + "\\" + line)) return std::nullopt;
  return line;
}

std::optional<std::string> RelativeLines::Above(const std::string& item) {
  if (!IsPlain(item) || item[0] != folder_[0] || !(names_.empty() || IsPlain(folder_))) return std::nullopt;
  const std::vector<std::string> names = NamesIn(item);
  std::size_t shared = 0;
  while (shared < names_.size() && shared + 1 < names.size() && names_[shared] == names[shared]) ++shared;
  const std::size_t up = names_.size() - shared;
  if (up == 0 || !LeadsUp(up)) return std::nullopt;
  std::string line;
  for (std::size_t i = 0; i < up; ++i) line += "..\\";
  for (std::size_t i = shared; i < names.size(); ++i) line += (i > shared ? "\\" : "") + names[i];
  return line;
}

// Whether ".." so many times leads out of the folder to the same place for who follows links as for who reads text.
bool RelativeLines::LeadsUp(std::size_t steps) {
  std::string up = folder_;
  for (std::size_t i = 0; i < leads_up_.size(); ++i) up += "\\..";
  while (leads_up_.size() < steps) {
    up += "\\..";
    std::string parent = folder_.substr(0, 3);
    const std::size_t left = names_.size() - leads_up_.size() - 1;
    for (std::size_t i = 0; i < left; ++i) parent += (i > 0 ? "\\" : "") + names_[i];
    const auto there = files_.IdentityOf(parent);
    leads_up_.push_back(there && there == files_.IdentityOf(up));
  }
  return leads_up_[steps - 1];
}

}  // namespace qublet
