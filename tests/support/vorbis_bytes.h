#pragma once

#include <string>
#include <vector>

namespace qublet {

inline std::string LittleEndian32(std::size_t value) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

// A comment packet, its vendor string of so many bytes, with the head of the setup packet behind it.
inline std::string VorbisPackets(const std::vector<std::string>& fields, std::size_t vendor_length = 29) {
  std::string packet = "\x03vorbis" + LittleEndian32(vendor_length) + std::string(vendor_length, 'v');
  packet += LittleEndian32(fields.size());
  for (const std::string& field : fields) packet += LittleEndian32(field.size()) + field;
  return packet + "\x01\x05vorbis";
}

// A file of this size that begins like an OGG file and has the comment packet at `at`; zeros behind it.
inline std::string VorbisFile(const std::vector<std::string>& fields, std::size_t size = 5000, std::size_t at = 100,
                              std::size_t vendor_length = 29) {
  std::string file = "OggS";
  file.resize(at, 'x');
  file += VorbisPackets(fields, vendor_length);
  file.resize(size, '\0');
  return file;
}

}  // namespace qublet
