#include "media/editor/run_file.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "platform/program.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::string_view kTitle = "QUBLET tag run";
constexpr std::size_t kLongestHeader = 256;
constexpr std::size_t kLengthSize = 4;
constexpr std::size_t kSumSize = 8;
constexpr std::size_t kDigits = 8;

void AppendLong(Bytes& out, std::uint64_t value) {
  AppendNumber(out, static_cast<std::uint32_t>(value >> 32), 4);
  AppendNumber(out, static_cast<std::uint32_t>(value), 4);
}

void AppendPiece(Bytes& out, BytesView piece) {
  AppendNumber(out, static_cast<std::uint32_t>(piece.size()), 4);
  Append(out, piece);
}

// Fewer bytes only at the end of the file.
Bytes ReadPiece(InputFile& file, std::int64_t offset, std::size_t length) {
  const std::int64_t room = std::max<std::int64_t>(file.Size() - offset, 0);
  Bytes bytes(std::min(length, static_cast<std::size_t>(room)));
  bytes.resize(file.ReadAt(offset, bytes));
  return bytes;
}

// Takes what the appending functions wrote.
class Taker {
 public:
  explicit Taker(BytesView bytes) : rest_(bytes) {}

  BytesView Take(std::size_t length) {
    if (length > rest_.size()) throw Failure("a record of a run is damaged");
    const BytesView taken = rest_.first(length);
    rest_ = rest_.subspan(length);
    return taken;
  }
  std::uint32_t Number() { return ReadNumber(Take(4)); }
  std::uint64_t Long() {
    const std::uint64_t high = Number();
    return high << 32 | Number();
  }
  Bytes Piece() {
    const BytesView piece = Take(Number());
    return {piece.begin(), piece.end()};
  }

 private:
  BytesView rest_;
};

}  // namespace

std::string RunFolder(const FileSystem& files) {
  const std::string folder = OwnFolderOfUser(files) + "\\tag-runs";
  if (!files.IdentityOf(folder)) files.CreateFolder(folder);
  return folder + "\\";
}

std::string RunFileName(int number, bool undone) {
  char name[32];
  std::snprintf(name, sizeof name, "%08d.%s", number, undone ? "undone" : "run");
  return name;
}

std::vector<RunFile> RunFiles(const FileSystem& files, const std::string& folder) {
  std::vector<RunFile> runs;
  for (const FolderEntry& entry : files.ReadFolder(folder)) {
    int number = 0;
    const std::string digits = entry.name.substr(0, kDigits);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool undone = entry.name.ends_with("undone");
    if (error != std::errc() || entry.name != RunFileName(number, undone)) continue;
    runs.push_back({number, undone, folder + entry.name});
  }
  std::ranges::sort(runs, {}, &RunFile::number);
  return runs;
}

std::uint64_t SumOf(BytesView bytes, std::uint64_t sum) {
  for (const std::uint8_t byte : bytes) sum = (sum ^ byte) * 0x100000001B3;  // FNV-1a
  return sum;
}

std::string RunHeader(const std::string& time, const std::string& origin) {
  return std::string(kTitle) + "\n" + time + "\n" + origin + "\n";
}

Bytes RunRecordBytes(const TagWrite& write) {
  Bytes record;
  AppendPiece(record, AsBytes(write.path));
  AppendLong(record, static_cast<std::uint64_t>(write.change.before));
  AppendLong(record, static_cast<std::uint64_t>(write.size));
  AppendPiece(record, write.old_head);
  AppendPiece(record, write.old_tail);
  AppendNumber(record, static_cast<std::uint32_t>(write.change.head.size()), 4);
  AppendNumber(record, static_cast<std::uint32_t>(write.change.tail.size()), 4);
  AppendLong(record, SumOf(write.change.tail, SumOf(write.change.head)));
  Bytes bytes;
  AppendPiece(bytes, record);
  AppendLong(bytes, SumOf(record));
  return bytes;
}

RunHead ReadRunHead(InputFile& file) {
  const Bytes start = ReadPiece(file, 0, kLongestHeader);
  const std::vector<std::string> lines = Split(AsText(start), '\n');
  if (lines.size() < 4 || lines[0] != kTitle) throw Failure("no run of tag changes");
  return {lines[1], lines[2]};
}

RunReader::RunReader(std::unique_ptr<InputFile> file) : file_(std::move(file)), head_(ReadRunHead(*file_)) {
  auto offset = static_cast<std::int64_t>(RunHeader(head_.time, head_.origin).size());
  while (offset + static_cast<std::int64_t>(kLengthSize) <= file_->Size()) {
    const std::uint32_t length = ReadNumber(ReadPiece(*file_, offset, kLengthSize));
    offset += static_cast<std::int64_t>(kLengthSize);
    if (offset + length + static_cast<std::int64_t>(kSumSize) > file_->Size()) break;
    places_.push_back({offset, length});
    offset += length + static_cast<std::int64_t>(kSumSize);
  }
}

RunRecord RunReader::At(std::size_t index) const {
  const Place& place = places_.at(index);
  const Bytes bytes = ReadPiece(*file_, place.offset, place.length + kSumSize);
  Taker whole(bytes);
  const BytesView content = whole.Take(place.length);
  if (whole.Long() != SumOf(content)) throw Failure("a record of a run is damaged");
  Taker taker(content);
  RunRecord record;
  record.path = AsText(taker.Piece());
  record.before = static_cast<std::int64_t>(taker.Long());
  record.size = static_cast<std::int64_t>(taker.Long());
  record.old_head = taker.Piece();
  record.old_tail = taker.Piece();
  record.new_head = taker.Number();
  record.new_tail = taker.Number();
  record.new_sum = taker.Long();
  return record;
}

}  // namespace qublet
