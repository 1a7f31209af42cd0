#include "media/tag_write.h"

namespace qublet {

bool TagWrite::ChangesNothing() const {
  return change.old_head == 0 && change.head.empty() && change.old_tail == 0 && change.tail.empty();
}

void KeepOldEnds(InputFile& file, TagWrite& write) {
  write.size = file.Size();
  write.version = file.Version();
  write.old_head = ReadBytes(file, write.change.before, write.change.old_head);
  write.old_tail = ReadBytes(file, write.size - write.change.old_tail, write.change.old_tail);
}

void RefuseUnlessReadFrom(const TagWrite& write, const std::optional<FileVersion>& read) {
  if (write.version != read) throw ChangedMeanwhile();
}

void CommitTags(const FileSystem& files, const TagWrite& write) {
  if (write.ChangesNothing()) return;
  const auto file = files.OpenForReading(write.path);
  const std::int64_t tail = write.size - write.change.old_tail;
  if (file->Version() != write.version || file->Size() != write.size ||
      !HoldsAt(*file, write.change.before, write.old_head) || !HoldsAt(*file, tail, write.old_tail))
    throw ChangedMeanwhile();
  ReplaceEnds(files, write.path, *file, write.change);
}

}  // namespace qublet
