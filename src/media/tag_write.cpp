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
  TagWrite present = write;
  KeepOldEnds(*file, present);
  if (present.version != write.version || present.size != write.size || present.old_head != write.old_head ||
      present.old_tail != write.old_tail)
    throw ChangedMeanwhile();
  ReplaceEnds(files, write.path, *file, write.change);
}

}  // namespace qublet
