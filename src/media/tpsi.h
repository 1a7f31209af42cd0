#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "media/tag_object.h"
#include "playlist/paths/collections.h"

namespace qublet {

// Places in time inside a song. They travel in its ID3v2 tag as a comment with a reserved description, whose text is
// one record after the other: nine digits each, the offset from the start of the audio in milliseconds.

inline constexpr std::string_view kTpsiDescription = "QUBLET_tpsidata";
inline constexpr std::size_t kTpsiRecordLength = 9;  // characters
inline constexpr int kTpsiEntries = 60;              // hours, minutes and seconds go from 0 to 59 each

// The records joined in their order. Always True.
bool EncodeTpsi(const Collection& records, std::string& text);
// The records of a text, whatever characters they hold. False, `records` untouched, when its length isn't a multiple
// of nine characters.
bool DecodeTpsi(Collection& records, std::string_view text);

// Of all comments with the reserved description, in their order; those that can't be decoded have none.
Collection TpsiRecords(const std::vector<TagComment>& comments);
// Puts the records into one reserved comment at the end; every other one goes. None for no records.
void StoreTpsi(const Collection& records, std::vector<TagComment>& comments);

// The record of a time; each number from 0 to 59.
std::string TpsiRecord(int hours, int minutes, int seconds);
// Adds a record at the end, but not one that is there already or that stands for the very start.
void AddTpsi(const std::string& record, Collection& records);
// The milliseconds that a record stands for: its leading number.
std::int32_t TpsiMilliseconds(const std::string& record);
// As a time to read, cut to whole seconds: "1:02:03".
std::string TpsiTimeText(const std::string& record);

}  // namespace qublet
