#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// Another program that reads ID3v2.3 and 2.4, to see what an edit does to its eyes. It shares no code with ours.
//
// It goes from size to size, passes over whatever has no proper id, and shows of a frame that the tag's end cuts off
// what is there. Sizes are plain in 2.3 and sync-safe in 2.4, unless the other form shows more proper frames (in 2.3
// also without anything left over), or as many with the last of them ending just where the zeros begin.

struct SeenFrame {
  std::string id;
  std::string content;
  auto operator<=>(const SeenFrame&) const = default;
};

class SecondReader {
 public:
  explicit SecondReader(std::string_view tag) : version_(tag[3]), body_(tag.substr(10)) {}

  // In order of id and content.
  std::vector<SeenFrame> Frames() const {
    const bool own = version_ == 4;
    const Reading first = Read(own);
    const Reading second = Read(!own);
    const bool more = second.whole > first.whole && (version_ == 4 || second.to_the_end);
    const bool exact = second.whole == first.whole && second.exact && !first.to_the_end;
    std::vector<SeenFrame> frames = !first.to_the_end && (more || exact) ? second.frames : first.frames;
    std::ranges::sort(frames);
    return frames;
  }

 private:
  struct Reading {
    std::vector<SeenFrame> frames;
    int whole = 0;
    bool to_the_end = true;
    bool exact = false;
  };

  static bool IsProper(std::string_view id) {
    const auto fits = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
    return fits(id[0]) && fits(id[1]) && fits(id[2]) && (fits(id[3]) || id[3] == ' ' || id[3] == 0);
  }

  static bool IsZeros(std::string_view bytes) { return bytes.find_first_not_of('\0') == std::string_view::npos; }

  // More than any tag holds where a byte of a sync-safe size isn't.
  static std::uint64_t SizeIn(std::string_view field, bool sync_safe) {
    std::uint64_t size = 0;
    for (const char byte : field) {
      const auto number = static_cast<unsigned char>(byte);
      if (sync_safe && number >= 0x80) return std::uint64_t{1} << 40;
      size = size << (sync_safe ? 7 : 8) | number;
    }
    return size;
  }

  Reading Read(bool sync_safe) const {
    Reading reading;
    std::size_t at = 0;
    std::size_t last = 0;
    while (body_.size() - at >= 10 && !IsZeros(body_.substr(at, 4))) {
      const std::uint64_t size = SizeIn(body_.substr(at + 4, 4), sync_safe);
      const bool whole = size <= body_.size() - at - 10;
      if (IsProper(body_.substr(at, 4))) {
        reading.frames.push_back({std::string(body_.substr(at, 4)), std::string(body_.substr(at + 10, size))});
        reading.whole += whole ? 1 : 0;
      }
      reading.to_the_end &= whole;
      if (!whole) return reading;
      last = at;
      at += 10 + size;
    }
    reading.to_the_end &= IsZeros(body_.substr(at));
    reading.exact = reading.to_the_end && at - last > 3 && !IsZeros(body_.substr(at - 4, 4));
    return reading;
  }

  int version_;
  std::string_view body_;
};

}  // namespace qublet
