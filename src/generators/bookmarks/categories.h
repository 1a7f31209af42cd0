#pragma once

#include <string>

#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// The program's own bookmarks: categories, each a file "NAME.bm" in the folder "Bookmarks" of the program folder.
// Such a file is plain text, a full path a line. The category "Default" is always there.
class Categories {
 public:
  static constexpr const char* kCannotBeRemoved = "This category cannot be removed.";

  // `program_folder` is in drive form without a trailing "\"; "" when there is none.
  Categories(const FileSystem& files, Dialogs& dialogs, const std::string& program_folder);

  // The names of all categories, ascending whatever their case.
  Collection ListCategories() const;
  // Of the file; a name is taken as it is, so one that holds "\" leads to another folder.
  std::string PathOf(const std::string& category) const { return folder_ + "\\" + category + ".bm"; }
  // Also where letter case makes no difference to the disk.
  bool IsDefault(const std::string& category) const;

  // Makes "Default", empty, where it is missing. What goes wrong is told.
  Outcome ProvideDefault() const;
  Outcome CreateDefaultCategory() const;
  // Appends the paths to the file `path`, which is made where it is missing. What goes wrong is told, and the file is
  // as it was.
  Outcome AddBookmarks(const std::string& path, const Collection& paths) const;

 private:
  Outcome Told(const Outcome& outcome, const char* text) const;

  const FileSystem& files_;
  Dialogs& dialogs_;
  const bool has_place_;
  const std::string folder_;
};

}  // namespace qublet
