#pragma once

#include <utf8proc.h>

namespace qublet {

// How a character of a text from a file is shown, in windows and on a terminal.

inline bool IsCharacterBetween(utf8proc_int32_t code, utf8proc_int32_t first, utf8proc_int32_t last) {
  return first <= code && code <= last;
}

// C0, DEL and C1: what a terminal takes for an order.
inline bool IsControlCharacter(utf8proc_int32_t code) {
  return code < 0x20 || IsCharacterBetween(code, 0x7F, 0x9F);
}

// Without a shape of their own: they steer the direction of text, end a line, or can't be seen. The joiners that
// languages need (U+200C, U+200D) aren't among them.
inline bool IsInvisibleCharacter(utf8proc_int32_t code) {
  return code == 0x061C || code == 0x200B || IsCharacterBetween(code, 0x200E, 0x200F) ||
         IsCharacterBetween(code, 0x2028, 0x202E) || IsCharacterBetween(code, 0x2060, 0x206F) || code == 0xFEFF ||
         IsCharacterBetween(code, 0xFFF9, 0xFFFB);
}

// Each reader sees something else there, or nothing.
inline bool IsPrivateUseCharacter(utf8proc_int32_t code) {
  return IsCharacterBetween(code, 0xE000, 0xF8FF) || code >= 0xF0000;
}

// The character itself, or a mark for what has no shape: a control picture for a control character, U+FFFD for the
// rest. The letters that stand in for a name's own ":", "\", control characters and bytes (see
// platform/linux/native_text.h) are shown as what they stand for.
inline utf8proc_int32_t ShownCharacter(utf8proc_int32_t code) {
  constexpr utf8proc_int32_t kMark = 0xFFFD;
  constexpr utf8proc_int32_t kControlPictures = 0x2400;
  constexpr utf8proc_int32_t kDeletePicture = 0x2421;
  if (IsCharacterBetween(code, 0x20, 0x7E)) return code;
  if (code == 0xF03A) return ':';
  if (code == 0xF05C) return '\\';
  if (IsCharacterBetween(code, 0xF001, 0xF01F)) return kControlPictures + (code - 0xF000);
  if (IsCharacterBetween(code, 0xF780, 0xF7FF)) return kMark;
  if (code < 0x20) return kControlPictures + code;
  if (code == 0x7F) return kDeletePicture;
  return IsControlCharacter(code) || IsInvisibleCharacter(code) ? kMark : code;
}

}  // namespace qublet
