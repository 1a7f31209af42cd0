#include "platform/language_code_page.h"

#include <iconv.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

#include "platform/code_page.h"

namespace qublet {
namespace {

constexpr int kWestern = 1252;

struct Languages {
  int page;
  std::initializer_list<std::string_view> codes;
};

// Where a script is named ("sr_RS@latin"), it decides before the language.
constexpr std::string_view kLatin = "@latin";
constexpr std::string_view kCyrillic = "@cyrillic";

bool IsOneOf(std::string_view code, std::initializer_list<std::string_view> codes) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

int PageOfLanguage(std::string_view locale) {
  const std::string_view code = locale.substr(0, locale.find_first_of("_.@"));
  const bool slavic_of_both = IsOneOf(code, {"sr", "bs", "sh"});
  if (slavic_of_both && locale.find(kLatin) != locale.npos) return 1250;
  if (locale.find(kCyrillic) != locale.npos) return 1251;
  const Languages table[] = {
      {1250, {"cs", "hu", "pl", "sk", "sl", "hr", "ro", "sq", "bs", "sh", "tk"}},
      {1251, {"ru", "uk", "be", "bg", "mk", "sr", "kk", "ky", "tt", "mn", "ba", "tg", "sah", "cv", "os"}},
      {1253, {"el"}},
      {1254, {"tr", "az", "uz", "crh"}},
      {1255, {"he", "iw", "yi"}},
      {1256, {"ar", "fa", "ur", "ps", "ug", "ckb", "sd"}},
      {1257, {"et", "lv", "lt", "ltg"}},
      {1258, {"vi"}},
      {874, {"th"}},
  };
  for (const Languages& languages : table)
    if (IsOneOf(code, languages.codes)) return languages.page;
  return kWestern;
}

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

int ChosenPage() {
  const std::string wanted(Environment("QUBLET_CODEPAGE"));
  const int number = std::atoi(wanted.c_str());
  if ((number >= 1250 && number <= 1258) || number == 874) return number;
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    if (!Environment(name).empty()) return PageOfLanguage(Environment(name));
  }
  return kWestern;
}

// The character of the same number.
std::string ControlCharacter(unsigned byte) {
  return {static_cast<char>(0xC0 | (byte >> 6)), static_cast<char>(0x80 | (byte & 0x3F))};
}

}  // namespace

LanguageCodePage::LanguageCodePage() : number_(ChosenPage()) {
  if (number_ == kWestern) return;
  const iconv_t conversion = iconv_open("UTF-8", ("CP" + std::to_string(number_)).c_str());
  if (conversion == reinterpret_cast<iconv_t>(-1)) {  // a system without its tables
    number_ = kWestern;
    return;
  }
  for (unsigned i = 0; i < upper_.size(); ++i) {
    char byte = static_cast<char>(0x80 + i);
    char text[8];
    char* in = &byte;
    char* out = text;
    std::size_t in_left = 1;
    std::size_t out_left = sizeof text;
    bool known = iconv(conversion, &in, &in_left, &out, &out_left) != static_cast<std::size_t>(-1);
    // A letter waits for the accent that may come behind it.
    known = known && iconv(conversion, nullptr, nullptr, &out, &out_left) != static_cast<std::size_t>(-1);
    upper_[i] = known && out != text ? std::string(text, out) : ControlCharacter(0x80 + i);
    iconv(conversion, nullptr, nullptr, nullptr, nullptr);
  }
  iconv_close(conversion);
}

std::string LanguageCodePage::Decode(std::string_view bytes) const {
  if (number_ == kWestern) return FromCodePage(bytes);
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char byte : bytes) {
    const auto number = static_cast<unsigned char>(byte);
    if (number < 0x80) {
      text += byte;
    } else {
      text += upper_[number - 0x80u];
    }
  }
  return text;
}

}  // namespace qublet
