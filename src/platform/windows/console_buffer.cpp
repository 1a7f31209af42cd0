#include "platform/windows/console_buffer.h"

#include <algorithm>

#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr std::size_t kPiece = 4096;  // bytes; a console takes no more than some 30,000 units at once

}  // namespace

std::size_t WholeCharacters(std::string_view text) {
  // The last character begins at most three bytes before the end.
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? text.size() - back : text.size();
  }
  return text.size();
}

ConsoleBuffer::int_type ConsoleBuffer::overflow(int_type byte) {
  if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
  const char character = traits_type::to_char_type(byte);
  return xsputn(&character, 1) == 1 ? byte : traits_type::eof();
}

std::streamsize ConsoleBuffer::xsputn(const char* bytes, std::streamsize count) {
  waiting_.append(bytes, static_cast<std::size_t>(count));
  while (waiting_.size() >= 2 * kPiece) {
    if (!Show(WholeCharacters(std::string_view(waiting_).substr(0, kPiece)))) return 0;
  }
  return count;
}

int ConsoleBuffer::sync() {
  while (waiting_.size() > kPiece) {
    if (!Show(WholeCharacters(std::string_view(waiting_).substr(0, kPiece)))) return -1;
  }
  return Show(WholeCharacters(waiting_)) ? 0 : -1;
}

bool ConsoleBuffer::Show(std::size_t count) {
  const std::wstring wide = WideText(waiting_.substr(0, count));
  waiting_.erase(0, count);
  DWORD shown = 0;
  return wide.empty() || WriteConsoleW(console_, wide.data(), static_cast<DWORD>(wide.size()), &shown, nullptr);
}

}  // namespace qublet
