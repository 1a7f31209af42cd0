#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "media/file_ends.h"
#include "platform/file_system.h"

namespace qublet {

// What is to become of one of a file's two tags.
enum class TagStep { kLeave, kWrite, kRemove };

// A change of a file's tags that has been worked out. Nothing of the file is touched before CommitTags.
struct TagWrite {
  std::string path;
  std::int64_t size = 0;  // of the file as it was looked at
  std::optional<FileVersion> version = std::nullopt;
  EndsChange change;
  Bytes old_head;  // what the change takes away
  Bytes old_tail;
  Outcome id3v2;  // why the step of the ID3v2 tag is no part of it

  // The file has the wanted tags already.
  bool ChangesNothing() const;
};

// Fills in what the change takes away. Throws Failure on an input error.
void KeepOldEnds(InputFile& file, TagWrite& write);

// A change is worked out from tags that were read before: throws ChangedMeanwhile when the file wasn't then what it
// was in the state `read`.
void RefuseUnlessReadFrom(const TagWrite& write, const std::optional<FileVersion>& read);

// Both tags change in one step: whatever happens the file is the old or the new one. Throws Failure; ChangedMeanwhile
// when the file isn't what it was looked at, at the start or when the new version stands ready.
void CommitTags(const FileSystem& files, const TagWrite& write);

}  // namespace qublet
