#include "platform/folded_text.h"

#include <cstdlib>
#include <memory>

#include "platform/characters.h"
#include "platform/code_page.h"

namespace qublet {
namespace {

// Folding of one character to one: where the full folding has more than one, the lower case stands for it, so that
// "?" in a pattern goes on to stand for a character of the name.
utf8proc_int32_t FoldOf(utf8proc_int32_t code) {
  if (code < 0x80) return LowerOf(code);
  utf8proc_int32_t folded[4];
  int boundary = 0;
  const auto count = utf8proc_decompose_char(code, folded, 4, UTF8PROC_CASEFOLD, &boundary);
  return count == 1 ? folded[0] : LowerOf(code);
}

}  // namespace

std::string FoldCase(std::string_view text) {
  if (!IsAscii(text)) return Changed(text, FoldOf);
  std::string folded(text);
  for (char& c : folded) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  return folded;
}

std::string SimilarityKey(std::string_view text) {
  return Decomposed(FoldCase(text));
}

std::string Decomposed(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  utf8proc_uint8_t* decomposed = nullptr;
  const auto length =
      utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                   &decomposed, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE));
  if (length < 0) return std::string(text);
  const std::unique_ptr<utf8proc_uint8_t, void (*)(void*)> owned(decomposed, std::free);
  return {reinterpret_cast<const char*>(decomposed), static_cast<std::size_t>(length)};
}

}  // namespace qublet
