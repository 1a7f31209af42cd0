#pragma once

#include <cstdint>
#include <span>

#include "platform/file_system.h"

namespace qublet {

// Where the tags before and behind the audio of a file begin and end, without a look into them.

// Bytes of the head of an ID3v2 tag.
constexpr int kId3v2HeadLength = 10;

// Length in bytes of the whole ID3v2 tag whose head these bytes are, its footer included; 0 when they are no head.
// It is what the head claims: the file may be shorter.
std::int64_t Id3v2Length(std::span<const std::uint8_t> head);

// Offset behind the last audio byte: ID3v1, APE, Lyrics3 and appended ID3v2 tags at the end are not counted, in any
// order. A tag that claims to begin before `first` is taken for audio. Throws Failure on an input error.
std::int64_t AudioEnd(InputFile& file, std::int64_t first);

}  // namespace qublet
