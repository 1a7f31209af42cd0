#include "media/mpeg_frame.h"

namespace qublet {
namespace {

constexpr int kRateCount = 15;

// By rate index; 0 is free format.
constexpr int kVersion1Rates[3][kRateCount] = {
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
};
constexpr int kVersion2Rates[3][kRateCount] = {
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
};
constexpr int kSampleRates[3][3] = {{44100, 48000, 32000}, {22050, 24000, 16000}, {11025, 12000, 8000}};

std::optional<MpegVersion> VersionOf(unsigned bits) {
  switch (bits) {
    case 0:
      return MpegVersion::k2_5;
    case 2:
      return MpegVersion::k2;
    case 3:
      return MpegVersion::k1;
    default:
      return std::nullopt;
  }
}

}  // namespace

int FrameHeader::Length() const {
  const int bits = kilobits * 1000;
  const int extra = padding ? 1 : 0;
  if (layer == 1) return (12 * bits / sample_rate + extra) * 4;
  return Samples() / 8 * bits / sample_rate + extra;
}

int FrameHeader::Samples() const {
  if (layer == 1) return 384;
  return layer == 3 && version != MpegVersion::k1 ? 576 : 1152;
}

std::optional<FrameHeader> ParseFrameHeader(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < 4 || bytes[0] != 0xFF || (bytes[1] & 0xE0) != 0xE0) return std::nullopt;
  const auto version = VersionOf(bytes[1] >> 3 & 3u);
  const unsigned layer_bits = bytes[1] >> 1 & 3u;
  const unsigned rate_index = bytes[2] >> 4;
  const unsigned sample_rate_index = bytes[2] >> 2 & 3u;
  if (!version || layer_bits == 0 || rate_index == 0 || rate_index == kRateCount || sample_rate_index == 3) {
    return std::nullopt;
  }

  FrameHeader header;
  header.version = *version;
  header.layer = 4 - static_cast<int>(layer_bits);
  const auto& rates = *version == MpegVersion::k1 ? kVersion1Rates : kVersion2Rates;
  header.kilobits = rates[header.layer - 1][rate_index];
  header.sample_rate = kSampleRates[static_cast<int>(*version)][sample_rate_index];
  header.padding = (bytes[2] & 2) != 0;
  header.mode = static_cast<ChannelMode>(bytes[3] >> 6);
  header.emphasis = static_cast<Emphasis>(bytes[3] & 3);
  header.crc = (bytes[1] & 1) == 0;
  header.copyrighted = (bytes[3] & 8) != 0;
  header.original = (bytes[3] & 4) != 0;
  return header;
}

bool InOneStream(const FrameHeader& a, const FrameHeader& b) {
  return a.version == b.version && a.layer == b.layer && a.sample_rate == b.sample_rate;
}

}  // namespace qublet
