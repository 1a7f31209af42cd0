#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace qublet {

enum class MpegVersion { k1, k2, k2_5 };
enum class ChannelMode { kStereo, kJointStereo, kDualChannel, kMono };
enum class Emphasis { kNone, k50_15, kReserved, kCcitt };

// What the four bytes in front of every MPEG audio frame say.
struct FrameHeader {
  MpegVersion version = MpegVersion::k1;
  int layer = 3;
  int kilobits = 0;     // bit rate in 1000 bit/s
  int sample_rate = 0;  // Hz
  bool padding = false;
  ChannelMode mode = ChannelMode::kStereo;
  Emphasis emphasis = Emphasis::kNone;
  bool crc = false;
  bool copyrighted = false;
  bool original = false;

  // Bytes from this header to the next.
  int Length() const;
  // Samples of one channel.
  int Samples() const;
};

// Nothing for bytes that are no frame header. Free format counts as none: its frames don't say how long they are.
std::optional<FrameHeader> ParseFrameHeader(std::span<const std::uint8_t> bytes);

// Whether two frames can stand in one stream. Bit rate and channel mode may change from frame to frame.
bool InOneStream(const FrameHeader& a, const FrameHeader& b);

}  // namespace qublet
