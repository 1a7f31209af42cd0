#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/engine.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/row_paths.h"

namespace qublet {

// Looks for files of the names of missing ones, then gives their rows other files: old folder by old folder, each
// time from the folders where the first missing file of the old one seems to be now. Only these files come into the
// list; nothing on disk changes. Rows neither come nor go elsewhere while it lives.
class Restoration {
 public:
  // With `UseFolderInfo` the files are looked for with their old folders, without the drive.
  Restoration(Engine& engine, const Collection& MissingPaths, bool UseFolderInfo);

  // Searches a drive ("c:\") or another folder with all below, until the user stops that.
  void SearchDrive(const std::string& root);
  // How many files the searches returned. A name that is missing twice is found twice.
  std::size_t FoundCount() const { return found_count_; }
  // What the searches didn't get at.
  const WalkGaps& Gaps() const { return gaps_; }

  // Old folders, in the order of the rows; one comes again when rows of another stand between its own.
  int FolderCount() const { return static_cast<int>(folders_.size()); }

  struct Step {
    std::string MissingPath;  // the file that stands for its folder
    Collection FoundPaths;    // suggested folders, in the order of the search; each ends in "\"
    std::string similar;      // without suggestions: a file that differs in case or accents only, if one was met
  };
  // `n` counts from 1.
  Step ShowMissingFolder(int n) const;
  // How many of the missing files of old folder `n` are in this one: "11 of 12".
  std::string HeldOf(int n, const std::string& folder) const;

  struct Choice {
    std::string folder;
    bool selected = false;
    bool ticked = false;
  };
  // Goes through the choices in their order. The selected folder gives the missing rows of old folder `n` what it
  // holds of their names; one that is ticked only gives all its audio files, at the end of the list. Gives how many
  // rows were restored.
  int ApplyFoundFolder(int n, const std::vector<Choice>& choices);

 private:
  const std::string& OldFolder(int n) const { return folders_.at(static_cast<std::size_t>(n - 1)); }
  const Collection& NamesOf(const std::string& folder) const;
  int Restore(const std::string& Folder, const std::string& New);
  int PutInPlace(const std::string& old_path, const std::string& path);
  void AddAll(const std::string& New);

  Engine& engine_;
  const bool UseFolderInfo_;
  Collection folders_;
  std::unordered_map<std::string, Collection> names_;     // missing files by old folder, in the order of the rows
  std::unordered_map<std::string, std::size_t> term_at_;  // where a term stands among those of the search
  std::vector<std::size_t> times_;                        // how often a term is missing
  std::optional<FolderSearch> search_;
  Collection FoundFiles;  // each once
  std::size_t found_count_ = 0;
  WalkGaps gaps_;
  std::optional<RowsByPath> rows_;
};

}  // namespace qublet
