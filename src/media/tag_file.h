#pragma once

#include <string>

#include "media/tag_object.h"
#include "platform/file_system.h"

namespace qublet {

// A file's tags loaded and put back as a whole. `ok` says whether it worked, and why not.

// Loads both tags and the stream facts of an existing file; nothing is thrown. Tags that were read stay when the
// stream fails.
void GetID3Tag(const FileSystem& files, const std::string& mp3_file, TagObject& tag, Outcome& ok);

// Throws Failure for a name that doesn't end in ".mp3": the bytes of any other kind of file aren't ours to change, a
// tag in front would break it.
void RefuseAllButMp3(const std::string& path);
// Throws Failure with the reason when the tags of the file can't be written: it isn't there, a folder, or read-only.
void RefuseUnwritable(const FileSystem& files, const std::string& path);

// What is done to a tag that is to be present, or not.
constexpr TagStep WrittenIf(bool present) {
  return present ? TagStep::kWrite : TagStep::kRemove;
}

// Writes each tag that is to be present and strips the other from the file. A read-only file isn't touched. When the
// ID3v2 step fails, a completed ID3v1 step stays in the file. Nothing is thrown.
void WriteTagToFile(const FileSystem& files, const std::string& path, TagObject& tag, bool id3v1_present,
                    bool id3v2_present, Outcome& ok);

}  // namespace qublet
