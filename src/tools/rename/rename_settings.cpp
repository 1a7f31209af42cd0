#include "tools/rename/rename_settings.h"

#include <algorithm>
#include <cstdint>

#include "platform/code_page.h"
#include "playlist/paths/text.h"
#include "settings/application.h"

namespace qublet {
namespace {

constexpr char kMarkerByte = '\x8F';
constexpr std::string_view kMarker = "\xC2\x8F";
constexpr std::size_t kVersionLength = 2;

std::string ByteOf(std::string_view character) {
  if (character == kMarker) return {kMarkerByte};
  const std::optional<std::string> bytes = ToCodePage(character);
  return bytes && !Contains(*bytes, {&kMarkerByte, 1}) ? *bytes : "?";
}

// What stands at the end of a text may be cut off, its marker never.
std::string FixedBytes(std::string_view text, std::size_t length) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t next = CharacterLength(text, at);
    const std::string added = ByteOf(text.substr(at, next));
    if (bytes.size() + added.size() > length) break;
    bytes += added;
    at += next;
  }
  const bool marked = text.ends_with(kMarker);
  bytes.resize(length, marked ? kMarkerByte : ' ');
  if (marked && !Contains(bytes, {&kMarkerByte, 1})) bytes.back() = kMarkerByte;
  return bytes;
}

// The marker has no place of its own in every code page.
std::string FixedText(std::string_view bytes) {
  std::string text;
  std::string between;
  for (const std::string& piece : Split(bytes, kMarkerByte)) {
    text += between + FromCodePage(piece);
    between = kMarker;
  }
  return text;
}

class RecordWriter {
 public:
  void Flag(bool value) { Integer(value ? -1 : 0, 2); }
  void Long(std::int32_t value) { Integer(value, 4); }
  void Text(std::string_view text, std::size_t length) { bytes += FixedBytes(text, length); }

  std::string bytes;

 private:
  void Integer(std::int32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * i));
  }
};

// Any number but 0 is true.
class RecordReader {
 public:
  explicit RecordReader(std::string_view record) : rest_(record) { rest_.resize(kRenameRecordSize, '\0'); }

  void Flag(bool& value) { value = Integer(2) != 0; }
  void Long(std::int32_t& value) { value = static_cast<std::int32_t>(Integer(4)); }
  void Text(std::string& text, std::size_t length) { text = FixedText(Take(length)); }

 private:
  std::string_view Take(std::size_t length) {
    at_ += length;
    return std::string_view(rest_).substr(at_ - length, length);
  }
  std::uint32_t Integer(std::size_t size) {
    std::uint32_t value = 0;
    const std::string_view bytes = Take(size);
    for (std::size_t i = size; i > 0; --i) value = value << 8 | static_cast<std::uint8_t>(bytes[i - 1]);
    return value;
  }

  std::string rest_;
  std::size_t at_ = 0;
};

// The one list of the fields, for both ways.
template <typename Record, typename Config>
void GoThrough(Record& record, Config& config) {
  record.Flag(config.Capitalise);
  record.Flag(config.Extension);
  record.Flag(config.Increment);
  record.Flag(config.IncPos);
  for (auto& text : config.ToReplace) record.Text(text, kFixedLength);
  for (auto& text : config.ReplaceTo) record.Text(text, kFixedLength);
  for (auto& active : config.RuleActive) record.Flag(active);
  record.Flag(config.Truncat);
  record.Long(config.Truncval);
  record.Flag(config.LowFilename);
  record.Flag(config.RenID3);
  record.Flag(config.RemNumbers);
  record.Text(config.Version, kVersionLength);
}

std::string ReadStart(const FileSystem& files, const std::string& path) {
  const auto file = files.OpenForReading(path);
  std::string bytes(kRenameRecordSize, '\0');
  bytes.resize(file->ReadAt(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()}));
  return bytes;
}

}  // namespace

std::string RenameVersion() {
  const ProgramVersion version;
  return (std::to_string(version.major_number) + std::to_string(version.minor_number)).substr(0, kVersionLength);
}

std::string RenameRecord(const RenameConfig& config) {
  RecordWriter writer;
  GoThrough(writer, config);
  return writer.bytes;
}

RenameConfig RenameConfigOf(std::string_view record) {
  RenameConfig config;
  RecordReader reader(record);
  GoThrough(reader, config);
  return config;
}

Outcome WriteRenameSettings(const FileSystem& files, const std::string& path, RenameConfig& config) {
  config.Version = RenameVersion();
  return Attempt([&] {
    const std::string record = RenameRecord(config);
    const auto replacement = files.BeginReplacement(path);
    replacement->Write({reinterpret_cast<const std::uint8_t*>(record.data()), record.size()});
    constexpr std::int64_t kRecordEnd = kRenameRecordSize;
    if (files.Attributes(path)) {
      const auto present = files.OpenForReading(path);
      if (present->Size() > kRecordEnd) replacement->CopyFrom(*present, kRecordEnd, present->Size() - kRecordEnd);
    }
    replacement->Commit();
  });
}

Outcome ReadRenameSettings(const FileSystem& files, const std::string& path, RenameConfig& config) {
  return Attempt([&] {
    config = RenameConfigOf(ReadStart(files, path));
    if (config.Version != RenameVersion()) throw Failure("of another version of this program");
  });
}

}  // namespace qublet
