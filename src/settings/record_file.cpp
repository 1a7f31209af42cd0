#include "settings/record_file.h"

#include <algorithm>

#include "platform/code_page.h"
#include "playlist/paths/text.h"

namespace qublet {

void RecordWriter::Text(std::string_view text, std::size_t length) {
  std::string bytes = FirstBytes(text, length);
  bytes.resize(length, ' ');
  record_ += bytes;
}

void RecordWriter::Integer(std::int32_t value, int size) {
  for (int i = 0; i < size; ++i) record_ += static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * i));
}

void RecordReader::Text(std::string& text, std::size_t length) {
  const std::string bytes = Bytes(length);
  const std::string_view filled = std::string_view(bytes).substr(0, bytes.find('\0'));
  text = FromCodePage(filled.substr(0, filled.find_last_not_of(' ') + 1));
}

std::string RecordReader::Bytes(std::size_t length) {
  std::string bytes(record_.substr(std::min(at_, record_.size()), length));
  at_ += length;
  bytes.resize(length, '\0');
  return bytes;
}

std::uint32_t RecordReader::Integer(std::size_t size) {
  std::uint32_t value = 0;
  const std::string bytes = Bytes(size);
  for (std::size_t i = size; i > 0; --i) value = value << 8 | static_cast<std::uint8_t>(bytes[i - 1]);
  return value;
}

std::string CharacterBytes(std::string_view character) {
  return ToCodePage(character).value_or("?");
}

std::string FirstBytes(std::string_view text, std::size_t most, std::string (*bytes_of)(std::string_view character)) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) {
    const std::string added = bytes_of(text.substr(at, CharacterLength(text, at)));
    if (bytes.size() + added.size() > most) break;
    bytes += added;
  }
  return bytes;
}

Outcome WriteRecordFile(const FileSystem& files, const std::string& path, const std::string& record) {
  return Attempt([&] {
    const auto replacement = files.BeginReplacement(path);
    replacement->Write({reinterpret_cast<const std::uint8_t*>(record.data()), record.size()});
    const auto end = static_cast<std::int64_t>(record.size());
    if (files.Attributes(path)) {
      const auto present = files.OpenForReading(path);
      replacement->ReplaceOnly(present->Version());
      if (present->Size() > end) replacement->CopyFrom(*present, end, present->Size() - end);
    }
    replacement->Commit();
  });
}

std::string ReadRecordFile(const FileSystem& files, const std::string& path, std::size_t size) {
  const auto file = files.OpenForReading(path);
  std::string bytes(size, '\0');
  bytes.resize(file->ReadAt(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()}));
  return bytes;
}

}  // namespace qublet
