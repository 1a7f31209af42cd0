#include "settings/schemes/look_file.h"

#include "settings/record_file.h"

namespace qublet {
namespace {

constexpr std::size_t kFontLength = 100;

// The one list of the fields, for both ways.
template <typename Record, typename LookType, typename Size>
void GoThrough(Record& record, LookType& look, Size& size) {
  record.Text(look.font, kFontLength);
  record.Short(size);
  record.Flag(look.bold);
  record.Flag(look.italic);
  record.Flag(look.strikethrough);
  record.Flag(look.underline);
  record.Flag(look.grid);
  record.Long(look.background);
  record.Long(look.text);
}

}  // namespace

std::string LookRecord(const Look& look) {
  RecordWriter writer;
  const std::int16_t size = WholeSize(look);
  GoThrough(writer, look, size);
  return writer.Record();
}

Look LookOfRecord(std::string_view record) {
  Look look;
  std::int16_t size = 0;
  RecordReader reader(record);
  GoThrough(reader, look, size);
  look.size = size;
  return look;
}

Outcome WriteLook(const FileSystem& files, const std::string& path, const Look& look) {
  return Attempt([&] { WriteRecordFile(files, path, LookRecord(look)).OrThrow(); });
}

Look ReadLook(const FileSystem& files, const std::string& path) {
  return LookOfRecord(ReadRecordFile(files, path, kLookRecordSize));
}

}  // namespace qublet
