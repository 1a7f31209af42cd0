#pragma once

#include <array>
#include <string>
#include <string_view>

namespace qublet {

// The 8-bit code page that programs of other systems write in this user's language: 1250 to 1258 or 874, else 1252.
// On Linux it follows the locale, and $QUBLET_CODEPAGE ("1251") overrides; on Windows it is the system's own.
class LanguageCodePage {
 public:
  LanguageCodePage();

  int Number() const { return number_; }
  // Bytes of it as UTF-8. Every byte has a meaning: one without a character stands for the control character of the
  // same number. Safe to call from several threads.
  std::string Decode(std::string_view bytes) const;

 private:
  int number_ = 1252;
  std::array<std::string, 128> upper_;  // texts of the bytes from 0x80; empty where the system's own page serves
};

}  // namespace qublet
