#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace qublet {

// Choices of one tool as a file: one record of fixed length. Integers are little-endian, truth values -1 or 0 in 16
// bits, texts a byte a character. A class with a function that goes through its fields takes either of these.

class RecordWriter {
 public:
  void Flag(bool value) { Integer(value ? -1 : 0, 2); }
  void Short(std::int16_t value) { Integer(value, 2); }
  void Long(std::int32_t value) { Integer(value, 4); }
  // In the system's code page, "?" for what has no place there, cut or filled up with blanks.
  void Text(std::string_view text, std::size_t length);
  void Bytes(std::string_view bytes) { record_ += bytes; }

  const std::string& Record() const { return record_; }

 private:
  void Integer(std::int32_t value, int size);

  std::string record_;
};

// What the record lacks counts as zero. Any number but 0 is true.
class RecordReader {
 public:
  // `record` must outlive the reader.
  explicit RecordReader(std::string_view record) : record_(record) {}

  void Flag(bool& value) { value = Integer(2) != 0; }
  void Short(std::int16_t& value) { value = static_cast<std::int16_t>(Integer(2)); }
  void Long(std::int32_t& value) { value = static_cast<std::int32_t>(Integer(4)); }
  // Up to the first zero, without the blanks around it.
  void Text(std::string& text, std::size_t length);
  std::string Bytes(std::size_t length);

 private:
  std::uint32_t Integer(std::size_t size);

  std::string_view record_;
  std::size_t at_ = 0;
};

// A character's bytes in the code page, "?" where it has none.
std::string CharacterBytes(std::string_view character);
// The bytes of a text's first characters, at most so many.
std::string FirstBytes(std::string_view text, std::size_t most,
                       std::string (*bytes_of)(std::string_view character) = CharacterBytes);

// Replaces the file; what a longer one holds behind the record stays there. On a failure the file is as it was.
Outcome WriteRecordFile(const FileSystem& files, const std::string& path, const std::string& record);
// The first `size` bytes; fewer from a shorter file. Throws Failure.
std::string ReadRecordFile(const FileSystem& files, const std::string& path, std::size_t size);

}  // namespace qublet
