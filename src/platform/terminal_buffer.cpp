#include "platform/terminal_buffer.h"

#include <algorithm>

#include "platform/characters.h"
#include "platform/shown_character.h"

namespace qublet {
namespace {

constexpr std::size_t kPiece = 4096;  // bytes; a console of Windows takes no more than some 30,000 units at once
constexpr utf8proc_int32_t kMark = 0xFFFD;

utf8proc_int32_t OnTerminal(utf8proc_int32_t code) {
  if (code == '\n' || code == '\t') return code;
  const utf8proc_int32_t shown = ShownCharacter(code);
  return IsPrivateUseCharacter(shown) ? kMark : shown;
}

}  // namespace

std::string TerminalText(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    AppendCharacter(shown, character.code < 0 ? kMark : OnTerminal(character.code));
    at += character.length;
  }
  return shown;
}

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

TerminalBuffer::~TerminalBuffer() {
  // A character that never became whole is shown too.
  TerminalBuffer::sync();
  ShowFirst(waiting_.size());
}

TerminalBuffer::int_type TerminalBuffer::overflow(int_type byte) {
  if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
  const char character = traits_type::to_char_type(byte);
  return xsputn(&character, 1) == 1 ? byte : traits_type::eof();
}

std::streamsize TerminalBuffer::xsputn(const char* bytes, std::streamsize count) {
  waiting_.append(bytes, static_cast<std::size_t>(count));
  while (waiting_.size() >= 2 * kPiece) {
    if (!ShowFirst(WholeCharacters(std::string_view(waiting_).substr(0, kPiece)))) return 0;
  }
  return count;
}

int TerminalBuffer::sync() {
  while (waiting_.size() > kPiece) {
    if (!ShowFirst(WholeCharacters(std::string_view(waiting_).substr(0, kPiece)))) return -1;
  }
  return ShowFirst(WholeCharacters(waiting_)) ? 0 : -1;
}

bool TerminalBuffer::ShowFirst(std::size_t count) {
  const std::string text = TerminalText(std::string_view(waiting_).substr(0, count));
  waiting_.erase(0, count);
  return text.empty() || show_(text);
}

}  // namespace qublet
