#include "media/wav_header.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/memory_file.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

// Every field another value.
const Bytes kHead = Joined({BytesOf("RIFF"),
                            {0x24, 0x08, 0x00, 0x80},
                            BytesOf("WAVEfmt "),
                            {0x10, 0, 0, 0},
                            {1, 0},
                            {2, 0},
                            {0x44, 0xAC, 0, 0},
                            {0x10, 0xB1, 0x02, 0},
                            {4, 0},
                            {16, 0}});

std::string Text(const std::array<char, 4>& letters) {
  return {letters.begin(), letters.end()};
}

TEST(ReadWavHeader, FillsEveryFieldFromItsFixedPlace) {
  MemoryFile file(kHead);
  WavHeader header;
  ReadWavHeader(file, header);
  EXPECT_EQ(Text(header.ChunkId), "RIFF");
  EXPECT_EQ(header.ChunkSize, std::numeric_limits<std::int32_t>::min() + 0x824);
  EXPECT_EQ(Text(header.RiffType), "WAVE");
  EXPECT_EQ(Text(header.FmtId), "fmt ");
  EXPECT_EQ(Text(header.FmtSize), std::string("\x10\0\0\0", 4));
  EXPECT_EQ(header.FormatTag, 1);
  EXPECT_EQ(header.Channels, 2);
  EXPECT_EQ(header.SampleRate, 44100);
  EXPECT_EQ(header.ByteRate, 176400);
  EXPECT_EQ(header.BlockAlign, 4);
  EXPECT_EQ(header.BitsPerSample, 16);
}

TEST(ReadWavHeader, ReadsThirtySixBytesOnce) {
  MemoryFile file(Joined({kHead, Bytes(100'000)}));
  WavHeader header;
  ReadWavHeader(file, header);
  EXPECT_EQ(file.Reads(), 1);
  EXPECT_EQ(file.BytesRead(), 36u);
}

TEST(ReadWavHeader, GivesFalseForAProperFile) {
  MemoryFile file(kHead);
  WavHeader header;
  EXPECT_FALSE(ReadWavHeader(file, header));
}

TEST(ReadWavHeader, TakesNegativeNumbersAsTheyStand) {
  MemoryFile file(Bytes(36, 0xFF));
  WavHeader header;
  ReadWavHeader(file, header);
  EXPECT_EQ(header.FormatTag, -1);
  EXPECT_EQ(header.SampleRate, -1);
}

TEST(ReadWavHeader, LeavesWhatAShortFileLacksAtZero) {
  MemoryFile file(Bytes(kHead.begin(), kHead.begin() + 25));
  WavHeader header;
  header.BitsPerSample = 77;
  ReadWavHeader(file, header);
  EXPECT_EQ(header.Channels, 2);
  EXPECT_EQ(header.SampleRate, 0x44);
  EXPECT_EQ(header.BitsPerSample, 0);
}

TEST(ReadWavHeader, KeepsTheRecordWhenTheFileCanNotBeRead) {
  MemoryFile file(kHead);
  file.Fail();
  WavHeader header;
  header.BitsPerSample = 77;
  EXPECT_FALSE(ReadWavHeader(file, header));
  EXPECT_EQ(header.BitsPerSample, 77);
}

TEST(ReadWavHeader, ReadsByPath) {
  const TemporaryDrives drives;
  drives.Write("a.wav", std::string(kHead.begin(), kHead.end()));
  const auto files = OpenFileSystem();
  WavHeader header;
  EXPECT_FALSE(ReadWavHeader(*files, "c:\\a.wav", header));
  EXPECT_EQ(header.SampleRate, 44100);
  EXPECT_FALSE(ReadWavHeader(*files, "c:\\missing.wav", header));
  EXPECT_EQ(header.SampleRate, 44100);
}

WavHeader Sound(std::int16_t bits, std::int32_t rate, std::int16_t channels) {
  WavHeader header;
  header.BitsPerSample = bits;
  header.SampleRate = rate;
  header.Channels = channels;
  return header;
}

TEST(WavBitRate, IsTheProductAndFailsBeyond32Bits) {
  EXPECT_EQ(WavBitRate(Sound(16, 44100, 2)), 1'411'200);
  EXPECT_EQ(WavBitRate(Sound(0, 0, 0)), 0);
  EXPECT_THROW(WavBitRate(Sound(16, 200'000'000, 1)), Failure);
  EXPECT_THROW(WavBitRate(Sound(16, 100'000'000, 2)), Failure);
  EXPECT_THROW(WavBitRate(Sound(16, 200'000'000, 0)), Failure) << "the first product is checked by itself";
}

TEST(WavKilobits, AreWholeAndEmptyForLessThanHalfOfOne) {
  EXPECT_EQ(WavKilobits(1'411'200), "1411");
  EXPECT_EQ(WavKilobits(705'600), "706");
  EXPECT_EQ(WavKilobits(64'000), "64");
  EXPECT_EQ(WavKilobits(499), "");
  EXPECT_EQ(WavKilobits(500), "1");
  EXPECT_EQ(WavKilobits(0), "");
  EXPECT_EQ(WavKilobits(-3000), "-3");
  EXPECT_EQ(WavKilobits(2'147'483'647), "2147484");
}

TEST(WavLength, RoundsHalfToEvenAndCountsTheHead) {
  EXPECT_EQ(WavLength(1'411'200 / 8 * 3 + 44, 1'411'200), 3);
  EXPECT_EQ(WavLength(2500, 8000), 2) << "2.5 seconds";
  EXPECT_EQ(WavLength(3500, 8000), 4) << "3.5 seconds";
}

TEST(WavLength, FailsFrom256MebibytesOnAndWithoutARate) {
  EXPECT_EQ(WavLength(268'435'455, 1'411'200), 1522);
  EXPECT_THROW(WavLength(268'435'456, 1'411'200), Failure);
  EXPECT_THROW(WavLength(1000, 0), Failure);
}

}  // namespace
}  // namespace qublet
