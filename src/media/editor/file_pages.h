#pragma once

#include <array>
#include <string>

#include "media/mpeg_stream.h"
#include "media/vorbis_comments.h"
#include "media/wav_header.h"
#include "platform/file_system.h"

namespace qublet {

// The texts of the information pages. A routine that fails ends silently: labels keep what they had.

inline constexpr const char* kUnknownLabel = "????";

struct FilePage {
  std::array<std::string, 2> FileInfo{kUnknownLabel, kUnknownLabel};
  bool read_only = false;
  bool archive = false;
  bool attributes_enabled = false;
};

using MpegLabels = std::array<std::string, 10>;
using OggLabels = std::array<std::string, 5>;

void ShowFileInfo(const FileSystem& files, const std::string& path, const std::string& thousands_separator,
                  FilePage& page);
// With an empty `path` all labels become "".
void ShowMpegInfo(const FileSystem& files, const std::string& path, const StreamFacts& stream, MpegLabels& labels);
void ShowWavInfo(const FileSystem& files, const std::string& path, const WavHeader& header, MpegLabels& labels);
// With an empty `path` the first label tells what was wrong.
void ShowOggInfo(const std::string& path, const VorbisComments& comments, OggLabels& labels);

// A number to two decimals, ties of the decimal number to the even one: "180.25", "3".
std::string TwoDecimals(double value);

}  // namespace qublet
