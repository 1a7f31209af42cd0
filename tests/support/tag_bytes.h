#pragma once

#include <cstdint>
#include <string>

namespace qublet {

// Tags written byte by byte, as files hold them.

// A number, its highest byte first, with so many bits of each byte used.
inline std::string NumberBytes(std::uint32_t value, unsigned count, unsigned bits = 8) {
  std::string bytes;
  for (unsigned i = count; i-- > 0;) bytes += static_cast<char>(value >> i * bits & ((1u << bits) - 1));
  return bytes;
}

inline std::string FrameBytes(int version, const std::string& id, const std::string& content,
                              std::uint16_t flags = 0) {
  const auto size = static_cast<std::uint32_t>(content.size());
  if (version == 2) return id + NumberBytes(size, 3) + content;
  return id + NumberBytes(size, 4, version == 4 ? 7 : 8) + NumberBytes(flags, 2) + content;
}

// A text frame in Latin-1.
inline std::string TextFrameBytes(int version, const std::string& id, const std::string& text) {
  return FrameBytes(version, id, std::string(1, '\0') + text);
}

// A COMM frame in Latin-1.
inline std::string CommentBytes(int version, const std::string& language, const std::string& description,
                                const std::string& text) {
  return FrameBytes(version, version == 2 ? "COM" : "COMM",
                    std::string(1, '\0') + language + description + std::string(1, '\0') + text);
}

inline std::string TagBytes(int version, const std::string& body, std::uint8_t flags = 0) {
  return std::string("ID3") + static_cast<char>(version) + '\0' + static_cast<char>(flags) +
         NumberBytes(static_cast<std::uint32_t>(body.size()), 4, 7) + body;
}

inline std::string Padded(std::string text, std::size_t size) {
  text.resize(size, '\0');
  return text;
}

inline std::string Id3v1Bytes(const std::string& title, const std::string& artist = "", const std::string& album = "",
                              const std::string& year = "", const std::string& comment = "", int genre = 255) {
  return "TAG" + Padded(title, 30) + Padded(artist, 30) + Padded(album, 30) + Padded(year, 4) + Padded(comment, 30) +
         static_cast<char>(genre);
}

// MPEG frames of silence, with sound to tell one from another.
inline std::string AudioBytes(std::size_t frames = 8) {
  std::string audio;
  for (std::size_t i = 0; i < frames; ++i) {
    std::string frame = "\xFF\xFB\x90\x64";
    for (std::size_t k = 4; k < 417; ++k) frame += static_cast<char>((i * 31 + k) % 200);
    audio += frame;
  }
  return audio;
}

}  // namespace qublet
