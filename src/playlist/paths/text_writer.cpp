#include "playlist/paths/text_writer.h"

#include <cstdint>
#include <utility>

#include "platform/code_page.h"

namespace qublet {

TextWriter::TextWriter(const FileSystem& files, std::string path, Encoding encoding)
    : files_(files), path_(std::move(path)), encoding_(encoding) {}

// ASCII is the same in all encodings; from the first other character on, the whole text decides. The last character
// stays, so that what follows isn't taken for the beginning of a text, where marks stand.
void TextWriter::WriteAhead() {
  if (encoding_ == Encoding::kText && !IsAscii(text_)) {
    next_ = std::string::npos;
    return;
  }
  const char last = text_.back();
  text_.pop_back();
  Write(text_);
  text_.assign(1, last);
}

// After an error nothing more is tried.
void TextWriter::Write(std::string_view bytes) {
  if (!so_far_) return;
  so_far_ = Attempt([&] {
    if (!file_) file_ = files_.BeginReplacement(path_);
    file_->Write({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  });
}

Outcome TextWriter::Commit() {
  if (encoding_ == Encoding::kText) text_ = EncodeText(std::move(text_));
  Write(text_);
  if (so_far_) so_far_ = Attempt([&] { file_->Commit(); });
  file_.reset();
  return so_far_;
}

}  // namespace qublet
