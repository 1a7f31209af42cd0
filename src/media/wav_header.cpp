#include "media/wav_header.h"

#include <cmath>
#include <span>

#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

using HeadBytes = std::array<std::uint8_t, 36>;

std::array<char, 4> Letters(const HeadBytes& bytes, std::size_t offset) {
  std::array<char, 4> letters{};
  for (std::size_t i = 0; i < letters.size(); ++i) letters[i] = static_cast<char>(bytes[offset + i]);
  return letters;
}

std::int16_t Integer16(const HeadBytes& bytes, std::size_t offset) {
  return static_cast<std::int16_t>(bytes[offset] | bytes[offset + 1] << 8);
}

std::int32_t Integer32(const HeadBytes& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | bytes[offset + i];
  return static_cast<std::int32_t>(value);
}

}  // namespace

bool ReadWavHeader(const FileSystem& files, const std::string& path, WavHeader& header) {
  ResumeNext([&] { ReadWavHeader(*files.OpenForReading(path), header); });
  return false;
}

bool ReadWavHeader(InputFile& file, WavHeader& header) {
  ResumeNext([&] {
    HeadBytes bytes{};
    file.ReadAt(0, bytes);
    header.ChunkId = Letters(bytes, 0);
    header.ChunkSize = Integer32(bytes, 4);
    header.RiffType = Letters(bytes, 8);
    header.FmtId = Letters(bytes, 12);
    header.FmtSize = Letters(bytes, 16);
    header.FormatTag = Integer16(bytes, 20);
    header.Channels = Integer16(bytes, 22);
    header.SampleRate = Integer32(bytes, 24);
    header.ByteRate = Integer32(bytes, 28);
    header.BlockAlign = Integer16(bytes, 32);
    header.BitsPerSample = Integer16(bytes, 34);
  });
  return false;
}

std::int32_t WavBitRate(const WavHeader& header) {
  return CheckedMultiply32(CheckedMultiply32(header.BitsPerSample, header.SampleRate), header.Channels);
}

std::string WavKilobits(std::int32_t bit_rate) {
  const long long kilobits = std::llround(bit_rate / 1000.0);
  return kilobits == 0 ? "" : std::to_string(kilobits);
}

std::int32_t WavLength(std::int32_t size, std::int32_t bit_rate) {
  const std::int32_t bits = CheckedMultiply32(size, 8);
  if (bit_rate == 0) throw Failure("no bit rate");
  return RoundHalfEven(static_cast<double>(bits) / bit_rate);
}

}  // namespace qublet
