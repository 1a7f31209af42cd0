#include "playlist/paths/text_writer.h"

#include <algorithm>
#include <cstdint>

#include "platform/code_page.h"
#include "platform/language_code_page.h"

namespace qublet {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

bool BeginsLikeAMark(std::string_view bytes) {
  return bytes.starts_with(kMark) || bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// Whether texts in this system's code page are what this user's programs read.
bool IsOwnPage(const LanguageCodePage& page) {
  std::string upper;
  for (int byte = 0x80; byte < 0x100; ++byte) upper += static_cast<char>(byte);
  return page.Decode(upper) == FromCodePage(upper);
}

// The line or its end in the code page; nothing when it wouldn't read back as the same.
std::optional<std::string> EncodedAlone(std::string_view line) {
  auto bytes = ToCodePage(line);
  if (bytes && (IsValidUtf8(*bytes) || FromCodePage(*bytes) != line)) bytes.reset();
  return bytes;
}

bool AppendEncoded(std::string_view text, std::string& bytes) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, std::min(text.find_first_of("\r\n"), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    if (IsAscii(line)) {
      bytes.append(line);
      continue;
    }
    const auto encoded = EncodedAlone(line);
    if (!encoded) return false;
    bytes.append(*encoded);
  }
  return true;
}

}  // namespace

TextWriter::TextWriter(const FileSystem& files, std::string path, Encoding encoding, bool mark)
    : files_(files), path_(std::move(path)), encoding_(encoding), mark_(mark) {}

void TextWriter::AppendBytes(std::string_view bytes) {
  as_they_are_.emplace_back(text_.size(), text_.size() + bytes.size());
  Append(bytes);
}

// ASCII is the same in all encodings; from the first other character on, the whole text decides. The last character
// stays, so that what follows isn't taken for the beginning of a text, where marks stand.
void TextWriter::WriteAhead() {
  if (encoding_ == Encoding::kByLine && !IsAscii(text_)) {
    next_ = std::string::npos;
    return;
  }
  const char last = text_.back();
  text_.pop_back();
  Write(text_);
  text_.assign(1, last);
  as_they_are_.clear();
}

// After an error nothing more is tried.
void TextWriter::Write(std::string_view bytes) {
  if (!so_far_) return;
  so_far_ = Attempt([&] {
    const auto put = [&](std::string_view piece) {
      file_->Write({reinterpret_cast<const std::uint8_t*>(piece.data()), piece.size()});
    };
    const bool begins = !file_;
    if (begins) file_ = files_.BeginReplacement(path_);
    if (begins && (mark_ || BeginsLikeAMark(bytes))) put(kMark);
    put(bytes);
  });
}

std::optional<std::string> TextWriter::InCodePage() const {
  const std::string_view text = text_;
  std::string bytes;
  bytes.reserve(text.size());
  std::size_t place = 0;
  for (const auto& [begin, end] : as_they_are_) {
    if (!AppendEncoded(text.substr(place, begin - place), bytes)) return std::nullopt;
    bytes.append(text.substr(begin, end - begin));
    place = end;
  }
  if (!AppendEncoded(text.substr(place), bytes)) return std::nullopt;
  return bytes;
}

Outcome TextWriter::Commit() {
  if (encoding_ == Encoding::kByLine && !IsAscii(text_) && IsOwnPage(LanguageCodePage())) {
    if (auto bytes = InCodePage()) text_ = std::move(*bytes);
  }
  Write(text_);
  if (so_far_) so_far_ = Attempt([&] { file_->Commit(); });
  file_.reset();
  return so_far_;
}

}  // namespace qublet
