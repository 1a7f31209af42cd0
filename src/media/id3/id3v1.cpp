#include "media/id3/id3v1.h"

#include <algorithm>

#include "platform/code_page.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::uint8_t kNoGenre = 255;

// Without the bytes of a UTF-8 character that the end of the text cuts off; the whole text if it isn't UTF-8.
std::string_view WithoutBrokenEnd(std::string_view bytes) {
  constexpr std::size_t kMostCut = 3;
  for (std::size_t cut = 1; cut <= kMostCut && cut < bytes.size(); ++cut) {
    const std::string_view kept = bytes.substr(0, bytes.size() - cut);
    const bool plain = std::ranges::all_of(kept, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const auto next = static_cast<unsigned char>(bytes[kept.size()]);
    const std::size_t length = next >= 0xF0 ? 4 : next >= 0xE0 ? 3 : next >= 0xC0 ? 2 : 0;
    if (!plain && length > cut && IsValidUtf8(kept)) return kept;
  }
  return bytes;
}

// The bytes of as much of the text as the width holds.
std::string FittingBytes(const std::string& text, std::size_t width) {
  std::string cut = FirstCharacters(text, width);
  std::string bytes = EncodeText(cut);
  for (std::size_t count = width; bytes.size() > width;) {
    cut = FirstCharacters(cut, --count);
    bytes = EncodeText(cut);
  }
  return bytes;
}

}  // namespace

Id3v1Tag::Id3v1Tag() {
  std::ranges::copy(std::string_view("TAG"), bytes_.begin());
  bytes_[kSize - 1] = kNoGenre;
}

std::optional<Id3v1Tag> Id3v1Tag::Parse(BytesView bytes) {
  if (bytes.size() > kSize || bytes.size() < kSize - kMostCut || AsText(bytes.first(3)) != "TAG") return std::nullopt;
  Id3v1Tag tag;
  if (bytes.size() == kSize) {
    std::ranges::copy(bytes, tag.bytes_.begin());
    return tag;
  }
  const std::size_t year_end = bytes.size() - (kSize - kComment.start);
  tag.bytes_.fill(0);
  std::ranges::copy(bytes.first(year_end), tag.bytes_.begin());
  std::ranges::copy(bytes.subspan(year_end), tag.bytes_.begin() + kComment.start);
  return tag.IsFilledUp() ? std::optional(tag) : std::nullopt;
}

bool Id3v1Tag::IsFilledUp() const {
  const auto filled_up = [this](Field field) {
    const BytesView bytes = BytesView(bytes_).subspan(field.start, field.width);
    return std::ranges::all_of(std::ranges::find(bytes, 0), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
  };
  const BytesView year = BytesView(bytes_).subspan(kYear.start, kYear.width);
  const auto is_digit = [](std::uint8_t byte) { return byte == 0 || (byte >= '0' && byte <= '9'); };
  return std::ranges::all_of(year, is_digit) && filled_up(kTitle) && filled_up(kArtist) && filled_up(kAlbum) &&
         filled_up({kComment.start, 28});
}

std::string Id3v1Tag::Text(Field field) const {
  std::string_view bytes = AsText(BytesView(bytes_).subspan(field.start, field.width));
  bytes = bytes.substr(0, bytes.find('\0'));
  if (bytes.size() == field.width) bytes = WithoutBrokenEnd(bytes);
  while (bytes.ends_with(' ')) bytes.remove_suffix(1);
  return DecodeText(bytes);
}

void Id3v1Tag::SetText(Field field, const std::string& text) {
  if (Text(field) == text) return;
  const std::string bytes = FittingBytes(text.substr(0, text.find('\0')), field.width);
  const auto start = bytes_.begin() + static_cast<std::ptrdiff_t>(field.start);
  std::fill_n(start, field.width, std::uint8_t{0});
  std::ranges::copy(bytes, start);
}

void Id3v1Tag::SetComment(const std::string& text) {
  whole_comment_ = text;
  SetText(CommentField(), text);
}

void Id3v1Tag::SetTrack(std::uint8_t track) {
  if (track == Track()) return;
  const std::string comment = whole_comment_.value_or(Comment());
  bytes_[kTrackMark] = 0;
  bytes_[kTrackMark + 1] = track;
  SetText(CommentField(), comment);
}

}  // namespace qublet
