#include "media/mpeg_frame.h"

#include <gtest/gtest.h>

#include "support/memory_file.h"

namespace qublet {
namespace {

FrameHeader Parsed(const Bytes& bytes) {
  const auto header = ParseFrameHeader(bytes);
  EXPECT_TRUE(header.has_value());
  return header.value_or(FrameHeader{});
}

TEST(FrameHeader, KnowsVersionLayerRatesLengthAndSamples) {
  struct Row {
    Bytes bytes;
    MpegVersion version;
    int layer, kilobits, sample_rate, length, samples;
  };
  const Row rows[] = {
      {{0xFF, 0xFB, 0x90, 0x64}, MpegVersion::k1, 3, 128, 44100, 417, 1152},
      {{0xFF, 0xFB, 0x92, 0x64}, MpegVersion::k1, 3, 128, 44100, 418, 1152},
      {{0xFF, 0xFB, 0xE4, 0x64}, MpegVersion::k1, 3, 320, 48000, 960, 1152},
      {{0xFF, 0xFB, 0xE8, 0x64}, MpegVersion::k1, 3, 320, 32000, 1440, 1152},
      {{0xFF, 0xFD, 0xA0, 0x04}, MpegVersion::k1, 2, 192, 44100, 626, 1152},
      {{0xFF, 0xFD, 0xE8, 0x04}, MpegVersion::k1, 2, 384, 32000, 1728, 1152},
      {{0xFF, 0xFF, 0x48, 0x04}, MpegVersion::k1, 1, 128, 32000, 192, 384},
      {{0xFF, 0xFF, 0x42, 0x04}, MpegVersion::k1, 1, 128, 44100, 140, 384},
      {{0xFF, 0xF3, 0x80, 0x64}, MpegVersion::k2, 3, 64, 22050, 208, 576},
      {{0xFF, 0xF3, 0x64, 0xC4}, MpegVersion::k2, 3, 48, 24000, 144, 576},
      {{0xFF, 0xF5, 0x90, 0x04}, MpegVersion::k2, 2, 80, 22050, 522, 1152},
      {{0xFF, 0xF7, 0x54, 0xC4}, MpegVersion::k2, 1, 80, 24000, 160, 384},
      {{0xFF, 0xE3, 0x28, 0x64}, MpegVersion::k2_5, 3, 16, 8000, 144, 576},
      {{0xFF, 0xE3, 0x20, 0x64}, MpegVersion::k2_5, 3, 16, 11025, 104, 576},
      {{0xFF, 0xE5, 0xE8, 0x04}, MpegVersion::k2_5, 2, 160, 8000, 2880, 1152},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.bytes));
    const FrameHeader header = Parsed(row.bytes);
    EXPECT_EQ(header.version, row.version);
    EXPECT_EQ(header.layer, row.layer);
    EXPECT_EQ(header.kilobits, row.kilobits);
    EXPECT_EQ(header.sample_rate, row.sample_rate);
    EXPECT_EQ(header.Length(), row.length);
    EXPECT_EQ(header.Samples(), row.samples);
  }
}

TEST(FrameHeader, KnowsModeEmphasisAndFlags) {
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x00}).mode, ChannelMode::kStereo);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x40}).mode, ChannelMode::kJointStereo);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x80}).mode, ChannelMode::kDualChannel);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0xC0}).mode, ChannelMode::kMono);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x00}).emphasis, Emphasis::kNone);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x01}).emphasis, Emphasis::k50_15);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x02}).emphasis, Emphasis::kReserved);
  EXPECT_EQ(Parsed({0xFF, 0xFB, 0x90, 0x03}).emphasis, Emphasis::kCcitt);
  EXPECT_FALSE(Parsed({0xFF, 0xFB, 0x90, 0x00}).crc);
  EXPECT_TRUE(Parsed({0xFF, 0xFA, 0x90, 0x00}).crc);
  EXPECT_FALSE(Parsed({0xFF, 0xFB, 0x90, 0x04}).copyrighted);
  EXPECT_TRUE(Parsed({0xFF, 0xFB, 0x90, 0x08}).copyrighted);
  EXPECT_FALSE(Parsed({0xFF, 0xFB, 0x90, 0x08}).original);
  EXPECT_TRUE(Parsed({0xFF, 0xFB, 0x90, 0x04}).original);
}

TEST(FrameHeader, RefusesReservedValuesAndFreeFormat) {
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0xEB, 0x90, 0x64})) << "version";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0xF9, 0x90, 0x64})) << "layer";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0xFB, 0x00, 0x64})) << "free format";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0xFB, 0xF0, 0x64})) << "bit rate";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0xFB, 0x9C, 0x64})) << "sample rate";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFE, 0xFB, 0x90, 0x64})) << "first byte";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0x1B, 0x90, 0x64})) << "second byte";
  EXPECT_FALSE(ParseFrameHeader(Bytes{0xFF, 0xFB, 0x90})) << "too short";
  EXPECT_FALSE(ParseFrameHeader({}));
}

TEST(InOneStream, LetsRateAndModeChangeOnly) {
  const FrameHeader joint = Parsed({0xFF, 0xFB, 0x90, 0x64});
  EXPECT_TRUE(InOneStream(joint, Parsed({0xFF, 0xFA, 0xE2, 0x00})));
  EXPECT_FALSE(InOneStream(joint, Parsed({0xFF, 0xFD, 0x90, 0x64}))) << "layer";
  EXPECT_FALSE(InOneStream(joint, Parsed({0xFF, 0xF3, 0x90, 0x64}))) << "version";
  EXPECT_FALSE(InOneStream(joint, Parsed({0xFF, 0xFB, 0x94, 0x64}))) << "sample rate";
}

}  // namespace
}  // namespace qublet
