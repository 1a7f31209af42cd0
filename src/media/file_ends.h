#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "media/id3/bytes.h"
#include "media/id3/id3v1.h"
#include "media/id3/raw_tag.h"
#include "platform/file_system.h"

namespace qublet {

// The two ends of an audio file, where its tags stand: what is there, and how it is changed without a risk.

// The ID3v2 tag stands at the start, or behind up to 64 KiB of bytes that are no audio (garbage, zeros) or an APE
// tag.
struct FileEnds {
  std::int64_t size = 0;
  std::optional<TagHeader> head;  // of the ID3v2 tag in front of the audio
  std::int64_t head_start = 0;
  std::int64_t head_end = 0;    // behind that tag; beyond the file's end when the header claims too much
  std::int64_t heads_end = 0;   // behind all the tags that follow it at once
  std::int64_t id3v1_size = 0;  // 0 when there is none

  bool HeadFits() const { return head_end <= size; }
};

// What the file holds of these bytes: fewer where it ends sooner, none before its start. Throws Failure on an input
// error, like the six below.
Bytes ReadBytes(InputFile& file, std::int64_t offset, std::int64_t length);
// Whether a file holds these bytes there. Throws Failure on an input error.
bool HoldsAt(InputFile& file, std::int64_t offset, BytesView bytes);
FileEnds FindEnds(InputFile& file);
// Whether an ID3v2 tag stands farther behind such bytes than it is looked for, so that a new one in front would hide
// it.
bool HasHeadOutOfReach(InputFile& file, const FileEnds& ends);
// The tag in front, as far as the file holds it. Nothing when there is none or it can't be understood.
std::optional<RawTag> ReadHead(InputFile& file, const FileEnds& ends);
// Whether other programs see other frames in it than we do; false for a tag that the file doesn't hold whole.
bool IsHeadReadOtherwise(InputFile& file, const FileEnds& ends);
std::optional<Id3v1Tag> ReadId3v1(InputFile& file, const FileEnds& ends);

// Whether a tag that replaces the present one where it stands is found there afterwards: what precedes it may look
// like audio, or like a header of its own, beside other bytes behind. Throws Failure on an input error.
bool IsHeadFoundAgain(InputFile& file, const FileEnds& ends, const Bytes& head);

// A file that begins and ends anew, with everything between as it was.
struct EndsChange {
  std::int64_t before = 0;    // bytes at the start that stay
  std::int64_t old_head = 0;  // bytes behind them that go
  Bytes head;
  std::int64_t old_tail = 0;  // bytes at the end that go
  Bytes tail;
};

// Writes the whole new file beside the old one, compares it with what it should be, flushes it and renames it over
// the old one, so that whatever happens the file is the old or the new one. In a folder that can't be written the
// file is changed in place, but only if nothing between the ends moves; a head that got shorter is filled up with
// padding for that. Throws Failure; the file is then as it was. What another program has made of it since `present`
// was opened stays: ChangedMeanwhile.
void ReplaceEnds(const FileSystem& files, const std::string& path, InputFile& present, const EndsChange& change);

}  // namespace qublet
