#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace qublet {

// What the list shows of a file, as it stands there.
struct MediaInfo {
  bool Valid = false;  // everything was read without a failure
  bool Found = false;  // there is such a file
  std::string FileName;
  std::int32_t Length = 0;  // whole seconds, 0 where unknown
  std::int32_t Size = 0;    // bytes
  std::string Path;         // the folder, with a trailing "\"
  std::string ID;
  std::string Layer;
  std::string Bitrate;  // "128 Kbit" or "192 Kbit (VBR)"
  std::string Samplerate;
  std::string Mode;
};

// Fills `info` for the file at `path`, by the file's extension alone. Only what is known of that kind of file is set;
// a failure ends it with `Valid` False and keeps what is set by then. A path without ":" is completed from the
// current folder at the end. Never throws. May be called by several threads at once, each with an `info` of its own.
void GetMediaInfo(const FileSystem& files, const std::string& path, MediaInfo& info);

// Name and folder alone, without a look at the disk.
void NameFile(const std::string& path, MediaInfo& info);
// Puts the current folder before the relative folder in `info`; "\" alone becomes the current folder. Throws Failure.
void CompleteFolder(const FileSystem& files, MediaInfo& info);

// Whether a bit rate text is that of a varying rate ("VBR" in any case).
bool IsVbr(std::string_view bitrate);
// Whole seconds of a file of `size` bytes whose bit rate text is that of a varying rate; a kilobit counts 1024 here.
// Throws Failure for 256 MiB or more, for a rate that is no number and for 0.
std::int32_t VbrLength(std::int32_t size, std::string_view bitrate);

}  // namespace qublet
