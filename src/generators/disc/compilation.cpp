#include "generators/disc/compilation.h"

#include "playlist/paths/folder_walk.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

constexpr std::int32_t kMebibyte = 1048576;

std::int32_t TotalLength(const FileSystem& system, const Collection& files) {
  std::int32_t total = 0;
  for (const std::string& file : files) total = ToInteger32(SaturatingAdd(total, system.FileLength(file)));
  return total;
}

CompilationCheck Compare(std::int32_t total, std::int32_t room, const std::string& thousands_separator) {
  if (total < room) return {true, ""};
  const std::int32_t excess = ToInteger32(std::int64_t{total} - room);
  return {false, "The total size of all the files is " + FormatSize(excess, thousands_separator) +
                     " more than the capacity of the CD-ROM!\r\nRemove some of the files and try again..."};
}

}  // namespace

std::int32_t CapacityBytes(int row) {
  if (row < 0 || row >= static_cast<int>(kDiscSizes.size())) throw Failure("no such size of a disc");
  return CheckedMultiply32(kDiscSizes[static_cast<std::size_t>(row)].mebibytes, kMebibyte);
}

CompilationCheck CheckCompilation(const FileSystem& system, Feedback& feedback, const std::string& folder,
                                  int size_row, const std::string& thousands_separator, Collection& files) {
  files.clear();
  WalkFolder(system, feedback, folder, {"*.*"}, files, true, false);
  if (files.empty()) return {false, "You must add at least one file to the compilation."};
  CompilationCheck check;
  ResumeNext([&] {
    const std::int32_t total = TotalLength(system, files);
    check = Compare(total, CapacityBytes(size_row) - kMebibyte, thousands_separator);
  });
  return check;
}

}  // namespace qublet
