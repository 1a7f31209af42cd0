#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qublet {

// The system's 8-bit code page: on Windows the active one, on Linux Windows-1252 with its five free bytes standing
// for the control characters of the same number.

// UTF-8 text as code page bytes; nothing when a character doesn't fit.
std::optional<std::string> ToCodePage(std::string_view utf8);
// Code page bytes as UTF-8. Every byte has a meaning, so this can't fail.
std::string FromCodePage(std::string_view bytes);

// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsValidUtf8(std::string_view bytes);

bool IsAscii(std::string_view text);

// What stands behind a byte-order mark of UTF-8, all of it when there is none.
std::string_view WithoutMark(std::string_view bytes);
// Bytes of a text file as UTF-8: a byte-order mark is skipped, valid UTF-8 is taken as it is, anything else is code
// page text.
std::string DecodeText(std::string_view bytes);
// UTF-8 text as bytes for a text file: code page bytes when every character fits and DecodeText reads them back as
// the same text, else UTF-8 without a mark. Never loses a character.
std::string EncodeText(std::string utf8);

}  // namespace qublet
