#include "tools/rename/rename_settings.h"

#include "platform/code_page.h"
#include "playlist/paths/text.h"
#include "settings/application.h"
#include "settings/record_file.h"

namespace qublet {
namespace {

constexpr char kMarkerByte = '\x8F';
constexpr std::string_view kMarker = "\xC2\x8F";
constexpr std::size_t kVersionLength = 2;

std::string MarkedBytes(std::string_view character) {
  if (character == kMarker) return {kMarkerByte};
  const std::string bytes = CharacterBytes(character);
  return Contains(bytes, {&kMarkerByte, 1}) ? "?" : bytes;
}

// What stands at the end of a text may be cut off, its marker never.
std::string FixedBytes(std::string_view text, std::size_t length) {
  std::string bytes = FirstBytes(text, length, MarkedBytes);
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

void GoThroughText(RecordWriter& record, const std::string& text, std::size_t length) {
  record.Bytes(FixedBytes(text, length));
}

void GoThroughText(RecordReader& record, std::string& text, std::size_t length) {
  text = FixedText(record.Bytes(length));
}

// The one list of the fields, for both ways.
template <typename Record, typename Config>
void GoThrough(Record& record, Config& config) {
  record.Flag(config.Capitalise);
  record.Flag(config.Extension);
  record.Flag(config.Increment);
  record.Flag(config.IncPos);
  for (auto& text : config.ToReplace) GoThroughText(record, text, kFixedLength);
  for (auto& text : config.ReplaceTo) GoThroughText(record, text, kFixedLength);
  for (auto& active : config.RuleActive) record.Flag(active);
  record.Flag(config.Truncat);
  record.Long(config.Truncval);
  record.Flag(config.LowFilename);
  record.Flag(config.RenID3);
  record.Flag(config.RemNumbers);
  GoThroughText(record, config.Version, kVersionLength);
}

}  // namespace

std::string RenameVersion() {
  const ProgramVersion version;
  return (std::to_string(version.major_number) + std::to_string(version.minor_number)).substr(0, kVersionLength);
}

std::string RenameRecord(const RenameConfig& config) {
  RecordWriter writer;
  GoThrough(writer, config);
  return writer.Record();
}

RenameConfig RenameConfigOf(std::string_view record) {
  RenameConfig config;
  RecordReader reader(record);
  GoThrough(reader, config);
  return config;
}

Outcome WriteRenameSettings(const FileSystem& files, const std::string& path, RenameConfig& config) {
  config.Version = RenameVersion();
  return WriteRecordFile(files, path, RenameRecord(config));
}

Outcome ReadRenameSettings(const FileSystem& files, const std::string& path, RenameConfig& config) {
  return Attempt([&] {
    config = RenameConfigOf(ReadRecordFile(files, path, kRenameRecordSize));
    if (config.Version != RenameVersion()) throw Failure("of another version of this program");
  });
}

}  // namespace qublet
