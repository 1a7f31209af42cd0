#include "mp3_files.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace qublet::measures {
namespace {

enum class Version { kMpeg25 = 0, kMpeg2 = 2, kMpeg1 = 3 };
enum class Layer { kIII = 1, kII = 2 };
enum class Head { kNone, kXing, kInfo };

struct Stream {
  Version version = Version::kMpeg1;
  Layer layer = Layer::kIII;
  int rate_index = 9;  // into the table of bit rates
  int sample_rate_index = 0;
  bool mono = false;
  Head head = Head::kNone;
};

// What a file carries around its stream.
struct Tags {
  int text_room = 0;      // bytes of the ID3v2 tag with its padding, 0 for none
  int picture_bytes = 0;  // added to it
  bool v1 = false;
};

constexpr std::array kMpeg1LayerIII = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr std::array kMpeg1LayerII = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr std::array kMpeg2 = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

int Kilobits(const Stream& stream, int rate_index) {
  const auto& table = stream.version != Version::kMpeg1 ? kMpeg2
                      : stream.layer == Layer::kII      ? kMpeg1LayerII
                                                        : kMpeg1LayerIII;
  return table[rate_index];
}

int SampleRate(const Stream& stream) {
  constexpr std::array rates = {44100, 48000, 32000};
  const int divisor = stream.version == Version::kMpeg1 ? 1 : stream.version == Version::kMpeg2 ? 2 : 4;
  return rates[stream.sample_rate_index] / divisor;
}

std::string BigEndian(std::uint32_t value) {
  return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
          static_cast<char>(value)};
}

// A silent frame: its head, and zeros.
std::string Frame(const Stream& stream, int rate_index) {
  const bool half = stream.layer == Layer::kIII && stream.version != Version::kMpeg1;
  const int length = (half ? 72 : 144) * Kilobits(stream, rate_index) * 1000 / SampleRate(stream);
  std::string frame(length, '\0');
  frame[0] = static_cast<char>(0xFF);
  frame[1] = static_cast<char>(0xE1 | static_cast<int>(stream.version) << 3 | static_cast<int>(stream.layer) << 1);
  frame[2] = static_cast<char>(rate_index << 4 | stream.sample_rate_index << 2);
  frame[3] = static_cast<char>(stream.mono ? 0xC0 : 0x40);
  return frame;
}

// The first frame of a stream that tells its count of frames and bytes.
std::string HeadFrame(const Stream& stream, int frames, std::size_t bytes) {
  const bool mpeg1 = stream.version == Version::kMpeg1;
  const int side_info = mpeg1 ? (stream.mono ? 17 : 32) : (stream.mono ? 9 : 17);
  std::string frame = Frame(stream, stream.rate_index);
  const std::string head = (stream.head == Head::kXing ? "Xing" : "Info") + BigEndian(3) + BigEndian(frames) +
                           BigEndian(static_cast<std::uint32_t>(bytes + frame.size()));
  return frame.replace(4 + side_info, head.size(), head);
}

std::string Audio(const Stream& stream, int frames) {
  std::string audio;
  for (int number = 0; number < frames; ++number) {
    const int swing = stream.head == Head::kXing ? number % 3 - 1 : 0;
    audio += Frame(stream, stream.rate_index + swing);
  }
  return stream.head == Head::kNone ? audio : HeadFrame(stream, frames, audio.size()) + audio;
}

std::string TagFrame(std::string_view id, const std::string& content) {
  return std::string(id) + BigEndian(static_cast<std::uint32_t>(content.size())) + std::string(2, '\0') + content;
}

std::string Id3v2(const Tags& tags) {
  const auto text = [](const char* characters) { return std::string(1, '\0') + characters; };
  std::string frames = TagFrame("TIT2", text("A title of usual length")) + TagFrame("TPE1", text("An artist")) +
                       TagFrame("TALB", text("An album")) + TagFrame("TYER", text("1999")) +
                       TagFrame("TRCK", text("7/20")) + TagFrame("TCON", text("(17)"));
  if (tags.picture_bytes > 0) {
    const std::string head("\0image/jpeg\0\3\0", 14);
    frames += TagFrame("APIC", head + std::string(tags.picture_bytes, '\x55'));
  }
  const std::size_t room = static_cast<std::size_t>(tags.text_room) + tags.picture_bytes;
  if (frames.size() < room) frames.resize(room, '\0');
  const auto size = frames.size();
  const std::string syncsafe = {static_cast<char>(size >> 21 & 0x7F), static_cast<char>(size >> 14 & 0x7F),
                                static_cast<char>(size >> 7 & 0x7F), static_cast<char>(size & 0x7F)};
  return std::string("ID3\3\0\0", 6) + syncsafe + frames;
}

std::string Id3v1() {
  std::string tag = "TAGA title of usual length";
  tag.resize(128, '\0');
  tag[127] = 17;
  return tag;
}

}  // namespace

std::vector<std::string> MakeMp3Files() {
  const std::vector<Stream> streams = {
      {.rate_index = 9},
      {.rate_index = 11, .sample_rate_index = 1},
      {.rate_index = 9, .head = Head::kXing},
      {.rate_index = 11, .head = Head::kInfo},
      {.rate_index = 5, .mono = true},
      {.rate_index = 8, .mono = true, .head = Head::kXing},
      {.version = Version::kMpeg2, .rate_index = 8},
      {.version = Version::kMpeg25, .rate_index = 4, .mono = true},
      {.layer = Layer::kII, .rate_index = 10, .sample_rate_index = 1},
  };
  const std::vector<Tags> tags = {
      {},
      {.v1 = true},
      {.text_room = 400},
      {.text_room = 2048, .v1 = true},
      {.text_room = 1024, .picture_bytes = 12'000},
  };
  std::vector<std::string> files;
  int frames = 24;
  for (const Stream& stream : streams) {
    for (const Tags& around : tags) {
      std::string file = around.text_room > 0 ? Id3v2(around) : "";
      file += Audio(stream, frames++);
      if (around.v1) file += Id3v1();
      files.push_back(std::move(file));
    }
  }
  return files;
}

}  // namespace qublet::measures
