#include "tools/rename/preview.h"

#include <unordered_map>

#include "platform/file_name.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr const char* kNameTaken = "there is a file of this name already";
constexpr const char* kNoFile = "no such file or folder";

// The run as it would go on the disk, file by file.
class Rehearsal {
 public:
  Rehearsal(const FileSystem& files, std::vector<PreviewRow>& rows) : files_(files), rows_(rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) places_.try_emplace(PathKey(rows[i].old_path), i + 1);
  }

  void Take(std::size_t index) {
    PreviewRow& row = rows_[index];
    if (row.fate == RenameFate::kRefused) return;
    if (!IsThere(row.old_path)) return Fail(row, RenameFate::kMissing, kNoFile);
    if (row.new_path == row.old_path) {
      row.fate = RenameFate::kUnchanged;
      return;
    }
    const std::string refusal = NameRefusal(GetFileName(row.new_path));
    if (!refusal.empty()) return Fail(row, RenameFate::kRefused, refusal);
    row.elsewhere = FolderAsItStands(row.new_path) != FolderAsItStands(row.old_path);
    if (row.elsewhere && !files_.Attributes(FolderAsItStands(row.new_path)))
      return Fail(row, RenameFate::kRefused, kNoFile);
    if (PathKey(row.new_path) != PathKey(row.old_path) && IsThere(row.new_path)) return MarkTaken(row, index + 1);
    by_now_[PathKey(row.old_path)] = 0;
    by_now_[PathKey(row.new_path)] = index + 1;
    row.fate = RenameFate::kRenamed;
  }

 private:
  // A link that leads nowhere is there, too. Its identity is quicker to be had of a file than its attributes.
  bool IsThere(const std::string& path) const {
    const auto renamed = by_now_.find(PathKey(path));
    if (renamed != by_now_.end()) return renamed->second > 0;
    return files_.IdentityOfFile(path) || files_.Attributes(path);
  }

  static void Fail(PreviewRow& row, RenameFate fate, const std::string& reason) {
    row.fate = fate;
    row.reason = reason;
  }

  void MarkTaken(PreviewRow& row, std::size_t place) {
    const std::string key = PathKey(row.new_path);
    Fail(row, RenameFate::kTaken, kNameTaken);
    if (const auto got = by_now_.find(key); got != by_now_.end()) {
      row.fate = RenameFate::kSameName;
      row.other = got->second;
      return;
    }
    const auto holder = places_.find(key);
    if (holder == places_.end()) return;
    row.other = holder->second;
    const std::string wanted = PathKey(rows_[row.other - 1].new_path);
    if (wanted == key)
      row.fate = RenameFate::kSameName;
    else if (wanted == PathKey(row.old_path))
      row.fate = RenameFate::kSwap;
    else if (row.other > place)
      row.fate = RenameFate::kChain;
  }

  const FileSystem& files_;
  std::vector<PreviewRow>& rows_;
  std::unordered_map<std::string, std::size_t> places_;  // of the files, by their old paths
  // By paths that the run has changed so far: the place of the file that has the path now, 0 when none has.
  std::unordered_map<std::string, std::size_t> by_now_;
};

std::string RowText(std::size_t place) {
  return "row " + std::to_string(place);
}

}  // namespace

bool Fails(const PreviewRow& row) {
  return !row.reason.empty();
}

std::string FateText(const PreviewRow& row) {
  switch (row.fate) {
    case RenameFate::kUnknown:
      return "";
    case RenameFate::kRenamed:
      return row.elsewhere ? "goes to another folder" : "renamed";
    case RenameFate::kUnchanged:
      return "unchanged";
    case RenameFate::kTaken:
      return "name taken on disk";
    case RenameFate::kSameName:
      return "same name as " + RowText(row.other);
    case RenameFate::kChain:
      return "name taken by " + RowText(row.other) + ", which is renamed later";
    case RenameFate::kSwap:
      return "would swap names with " + RowText(row.other);
    case RenameFate::kRefused:
      return "refused: " + row.reason;
    case RenameFate::kMissing:
      return "missing";
  }
  return "";
}

std::vector<PreviewRow> PlanNames(const RenameRules& rules, const Collection& paths, Numbering& numbering,
                                  const TitleReader& title, const Stopped& stopped) {
  std::vector<PreviewRow> rows;
  rows.reserve(paths.size());
  for (const std::string& path : paths) {
    if (stopped()) break;
    const Numbering::Number number = rules.CountsFiles() ? numbering.Next(path) : Numbering::Number{};
    PreviewRow row{path, path, {}, 0, false, ""};
    const Outcome worked_out =
        Attempt([&] { row.new_path = rules.NewPath(path, number.Index, number.Total, title); });
    if (!worked_out) {
      row.fate = RenameFate::kRefused;
      row.reason = worked_out.Reason();
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

void WorkOutFates(const FileSystem& files, std::vector<PreviewRow>& rows, const Stopped& stopped) {
  ResumeNext([&] {
    Rehearsal rehearsal(files, rows);
    for (std::size_t i = 0; i < rows.size() && !stopped(); ++i) rehearsal.Take(i);
  });
}

}  // namespace qublet
