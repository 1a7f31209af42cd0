#include "media/vorbis_comments.h"

#include <algorithm>
#include <string_view>

#include "media/id3/text_encoding.h"
#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

using namespace std::string_view_literals;

constexpr std::int64_t kBlock = 2048;
constexpr std::string_view kCommentStarts[] = {"\x03vorbis\x1D"sv, "\x03vorbis\x20"sv};
constexpr std::string_view kCloseMark = "\x05vorbis"sv;
constexpr std::string_view kEndOfLastValue = "\x01\x05vorbis"sv;
constexpr std::string_view kEndOfValue = "\0\0\0"sv;

constexpr char kNotOpened[] = "Error opening file! ";
constexpr char kNotProcessed[] = "Error processing file.";
constexpr char kNotFound[] = "Vorbis header not found!";
constexpr char kNotClosed[] = "Vorbis header not closed!";
constexpr char kNothingThere[] = "No tag information exists!";

// Where a piece stands at or after `from`, counted from 1; 0 when it doesn't.
std::int64_t Position(std::string_view buffer, std::string_view piece, std::int64_t from = 1) {
  const std::size_t found = buffer.find(piece, static_cast<std::size_t>(from - 1));
  return found == std::string_view::npos ? 0 : static_cast<std::int64_t>(found) + 1;
}

void Read(InputFile& file, std::int64_t offset, std::string& buffer) {
  file.ReadAt(offset, {reinterpret_cast<std::uint8_t*>(buffer.data()), buffer.size()});
}

std::string Blanks(std::int64_t count) {
  if (count < 0) throw Failure("a negative length");
  return std::string(static_cast<std::size_t>(count), ' ');
}

std::int64_t CommentStart(std::string_view buffer) {
  std::int64_t first = 0;
  for (const std::string_view start : kCommentStarts) {
    const std::int64_t position = Position(buffer, start);
    if (position != 0 && (first == 0 || position < first)) first = position;
  }
  return first;
}

// The position of the comment header inside the block that holds it. A block that leaves less than another one behind
// it isn't searched. 0 when there is none.
std::int64_t FindCommentHeader(InputFile& file, std::string& buffer) {
  std::int64_t remaining = file.Size();
  std::int64_t offset = 0;
  while (true) {
    Read(file, offset, buffer);
    const auto length = static_cast<std::int64_t>(buffer.size());
    offset += length;
    remaining -= length;
    if (remaining < kBlock) buffer = Blanks(remaining);
    if (const std::int64_t start = CommentStart(buffer)) return start;
    if (remaining == 0) return 0;
  }
}

// The bytes behind a prefix that stands at `position`. The byte before the three zeros is the length of the next
// field.
std::string_view CutValue(std::string_view buffer, std::int64_t position, std::string_view prefix) {
  std::int64_t end = Position(buffer, kEndOfValue, position);
  const std::int64_t last_end = Position(buffer, kEndOfLastValue, position);
  if (last_end < end) end = last_end + 1;
  const std::int64_t start = position + static_cast<std::int64_t>(prefix.size());
  const std::int64_t length = end - 1 - start;
  if (length < 0) throw Failure("a negative length");
  return buffer.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}

// True when the field is there.
bool TakeField(std::string_view buffer, std::string_view prefix, std::string& field) {
  const std::int64_t position = Position(buffer, prefix);
  if (position == 0) return false;
  field = FromLatin1(AsBytes(CutValue(buffer, position, prefix)));
  return true;
}

// True when any field is there.
bool TakeFields(std::string_view buffer, VorbisComments& comments) {
  bool found = TakeField(buffer, "TITLE=", comments.Title);
  found |= TakeField(buffer, "ARTIST=", comments.Artist);
  found |= TakeField(buffer, "COMMENT=", comments.Comment);
  found |= TakeField(buffer, "ALBUM=", comments.Album);
  found |= TakeField(buffer, "DATE=", comments.Date);
  std::string track;
  if (TakeField(buffer, "TRACKNUMBER=", track)) {
    comments.Track = ToInteger16(RoundHalfEven(LeadingNumber(track)));
    found = true;
  }
  found |= TakeField(buffer, "GENRE=", comments.Genre);
  found |= TakeField(buffer, "ENCODED_USING=", comments.EncodedUsing);
  return found;
}

// What went wrong, "" when nothing did.
const char* ReadFields(InputFile& file, VorbisComments& comments) {
  std::string buffer(kBlock, ' ');
  const std::int64_t start = FindCommentHeader(file, buffer);
  if (start == 0) return kNotFound;
  // Right for a header in the first block only; files have it there.
  buffer.assign(kBlock, ' ');
  Read(file, start - 1, buffer);
  constexpr std::int64_t kBehindStart = 7;
  if (Position(buffer, kCloseMark, kBehindStart) == 0) return kNotClosed;
  return TakeFields(buffer, comments) ? "" : kNothingThere;
}

}  // namespace

bool ReadVorbisComments(const FileSystem& files, const std::string& path, VorbisComments& comments) {
  comments = {};
  comments.ErrorText = kNotOpened;
  std::unique_ptr<InputFile> file;
  ResumeNext([&] { file = files.OpenForReading(path); });
  return file && ReadVorbisComments(*file, comments);
}

bool ReadVorbisComments(InputFile& file, VorbisComments& comments) {
  comments = {};
  comments.ErrorText = kNotProcessed;
  ResumeNext([&] { comments.ErrorText = ReadFields(file, comments); });
  return comments.ErrorText.empty();
}

}  // namespace qublet
