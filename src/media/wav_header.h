#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// The first 36 bytes of a WAV file, whatever they are: the offsets are fixed and no chunk is looked for.
struct WavHeader {
  std::array<char, 4> ChunkId{};
  std::int32_t ChunkSize = 0;
  std::array<char, 4> RiffType{};
  std::array<char, 4> FmtId{};
  std::array<char, 4> FmtSize{};
  std::int16_t FormatTag = 0;  // 1 is PCM
  std::int16_t Channels = 0;
  std::int32_t SampleRate = 0;  // Hz
  std::int32_t ByteRate = 0;
  std::int16_t BlockAlign = 0;
  std::int16_t BitsPerSample = 0;
};

// Fills `header`; fields behind the end of a short file become 0. A file that can't be opened or read leaves it as it
// was. The result is always False, also for a proper file: it carries no information.
bool ReadWavHeader(const FileSystem& files, const std::string& path, WavHeader& header);
bool ReadWavHeader(InputFile& file, WavHeader& header);

// Bits of sound in a second. Throws Failure when it doesn't fit 32 bits.
std::int32_t WavBitRate(const WavHeader& header);
// A rate in bit/s as whole kilobits of 1000, "" for one that rounds to 0.
std::string WavKilobits(std::int32_t bit_rate);
// Seconds of sound in a file of `size` bytes, its header counted as sound. Throws Failure from 256 MiB on and for a
// rate of 0.
std::int32_t WavLength(std::int32_t size, std::int32_t bit_rate);

}  // namespace qublet
