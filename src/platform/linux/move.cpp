#include "platform/linux/move.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "platform/file_content.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/open_files.h"
#include "platform/linux/rename.h"
#include "platform/linux/replacement.h"
#include "platform/linux/unfinished_files.h"

namespace qublet {
namespace {

// On a file system that ignores case the target of a change of case seems to exist: it is the file itself. Two
// links to one file look the same, but then the folder holds the target's name letter for letter.
bool IsChangeOfCase(const std::string& from, const std::string& to) {
  struct stat source {};
  struct stat target {};
  if (lstat(from.c_str(), &source) != 0 || lstat(to.c_str(), &target) != 0) return false;
  if (source.st_dev != target.st_dev || source.st_ino != target.st_ino) return false;
  const std::filesystem::path place(to);
  const std::filesystem::path folder = place.has_parent_path() ? place.parent_path() : ".";
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().filename() == place.filename()) return false;
  }
  return !error;
}

// The name between keeps systems from taking both names for the same and doing nothing.
int ChangeCase(const std::string& from, const std::string& to) {
  const WholeStep step = BeginWholeStep();
  const std::string between = to.substr(0, to.rfind('/') + 1) + TemporaryName();
  if (const int error = RenameWithoutReplacing(AT_FDCWD, from, between)) return error;
  const int error = RenameWithoutReplacing(AT_FDCWD, between, to);
  if (error != 0) rename(between.c_str(), from.c_str());
  return error;
}

void MoveAcross(const std::string& from, const std::string& to) {
  const auto source = OpenInput(from);
  Replacement copy(to, Replacement::Role::kMoved, source.get());
  copy.CopyFrom(*source, 0, source->Size());
  if (!SameContent(*source, *copy.OpenWritten())) throw Failure("the copy differs", to);
  copy.Commit();
  struct stat status {};
  if (stat(from.c_str(), &status) != 0 || VersionOf(status) != source->Version()) {
    unlink(to.c_str());
    throw ChangedMeanwhile();
  }
  if (unlink(from.c_str()) == 0) return;
  const int error = errno;
  unlink(to.c_str());
  errno = error;
  FailWithErrno("delete", from);
}

}  // namespace

void Move(const std::string& from, const std::string& to) {
  int error = RenameWithoutReplacing(AT_FDCWD, from, to);
  if (error == EXDEV) return MoveAcross(from, to);
  if (error == EEXIST && IsChangeOfCase(from, to)) error = ChangeCase(from, to);
  errno = error;
  if (error != 0) FailWithErrno("rename", from);
}

}  // namespace qublet
