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

// Of the file that a playlist is a link to, where that lies in another folder.
std::string LinkedFolder(const FileSystem& files, const std::string& playlist) {
  const auto linked = files.LinkedFile(playlist);
  const std::string folder = linked ? FolderOfPlaylist(*linked) : "";
  return folder == FolderOfPlaylist(playlist) ? "" : folder;
}

}  // namespace

RelativeLines::RelativeLines(const FileSystem& files, const std::string& playlist, bool parents)
    : files_(files),
      folder_(FolderOfPlaylist(playlist)),
      linked_folder_(LinkedFolder(files, playlist)),
      file_folder_(linked_folder_.empty() ? folder_ : linked_folder_),
      parents_(parents),
      names_(NamesIn(file_folder_)) {}

std::optional<std::string> RelativeLines::LineOf(const std::string& item) {
  if (auto line = Below(item)) return line;
  return parents_ ? Above(item) : std::nullopt;
}

std::optional<std::string> RelativeLines::Below(const std::string& item) const {
  std::string line = RelativeLine(item, folder_);
  if (line != item) return line;
  if (linked_folder_.empty()) return std::nullopt;
  line = RelativeLine(item, linked_folder_);
  if (line == item || IsOtherBesideTheLink(line, item)) return std::nullopt;
  return line;
}

// Who reads a line looks into the folder of the link first.
bool RelativeLines::IsOtherBesideTheLink(const std::string& line, const std::string& item) const {
  if (linked_folder_.empty()) return false;
  const std::string beside = folder_ + "\\" + line;
  if (!files_.Exists(beside)) return false;
  const auto identity = files_.IdentityOf(beside);
  return !identity || identity != files_.IdentityOf(item);
}

// From the file's own folder: so the line is right for who opens the file by its own name, too.
std::optional<std::string> RelativeLines::Above(const std::string& item) {
  if (!IsPlain(item) || item[0] != file_folder_[0] || !(names_.empty() || IsPlain(file_folder_))) return std::nullopt;
  const std::vector<std::string> names = NamesIn(item);
  std::size_t shared = 0;
  while (shared < names_.size() && shared + 1 < names.size() && names_[shared] == names[shared]) ++shared;
  const std::size_t up = names_.size() - shared;
  if (up == 0 || !LeadsUp(up)) return std::nullopt;
  std::string line;
  for (std::size_t i = 0; i < up; ++i) line += "..\\";
  for (std::size_t i = shared; i < names.size(); ++i) line += (i > shared ? "\\" : "") + names[i];
  return IsOtherBesideTheLink(line, item) ? std::nullopt : std::optional(line);
}

// Whether ".." so many times leads out of the folder to the same place for who follows links as for who reads text.
bool RelativeLines::LeadsUp(std::size_t steps) {
  std::string up = file_folder_;
  for (std::size_t i = 0; i < leads_up_.size(); ++i) up += "\\..";
  while (leads_up_.size() < steps) {
    up += "\\..";
    std::string parent = file_folder_.substr(0, 3);
    const std::size_t left = names_.size() - leads_up_.size() - 1;
    for (std::size_t i = 0; i < left; ++i) parent += (i > 0 ? "\\" : "") + names_[i];
    const auto there = files_.IdentityOf(parent);
    leads_up_.push_back(there && there == files_.IdentityOf(up));
  }
  return leads_up_[steps - 1];
}

}  // namespace qublet
