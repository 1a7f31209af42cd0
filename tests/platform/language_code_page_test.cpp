#include "platform/language_code_page.h"

#include <gtest/gtest.h>

#include "platform/code_page.h"
#include "support/environment.h"

namespace qublet {
namespace {

int PageIn(const char* locale) {
  const ScopedEnvironment all("LC_ALL", locale);
  const ScopedEnvironment wanted("QUBLET_CODEPAGE", "");
  return LanguageCodePage().Number();
}

TEST(LanguageCodePage, FollowsTheLanguage) {
  const std::pair<const char*, int> languages[] = {
      {"cs_CZ.UTF-8", 1250}, {"pl_PL", 1250},       {"hu", 1250},
      {"ru_RU.UTF-8", 1251}, {"uk_UA.UTF-8", 1251}, {"el_GR.UTF-8", 1253},
      {"tr_TR", 1254},       {"he_IL.UTF-8", 1255}, {"ar_EG.UTF-8", 1256},
      {"fa_IR", 1256},       {"lt_LT", 1257},       {"vi_VN.UTF-8", 1258},
      {"th_TH.UTF-8", 874},  {"sr_RS.UTF-8", 1251}, {"sr_RS@latin", 1250},
      {"de_DE.UTF-8", 1252}, {"C", 1252},           {"ja_JP.UTF-8", 1252},
      {"POSIX", 1252},       {"en_US.UTF-8", 1252}, {"uz_UZ@cyrillic", 1251}};
  for (const auto& [locale, page] : languages) EXPECT_EQ(PageIn(locale), page) << locale;
}

TEST(LanguageCodePage, CanBeChosen) {
  const ScopedEnvironment all("LC_ALL", "de_DE.UTF-8");
  for (const char* number : {"1250", "1251", "1253", "1254", "1255", "1256", "1257", "1258", "874", "1252"}) {
    const ScopedEnvironment wanted("QUBLET_CODEPAGE", number);
    EXPECT_EQ(std::to_string(LanguageCodePage().Number()), number);
  }
  for (const char* none : {"", "utf-8", "932", "1259", "-1"}) {
    const ScopedEnvironment wanted("QUBLET_CODEPAGE", none);
    EXPECT_EQ(LanguageCodePage().Number(), 1252) << none;
  }
}

TEST(LanguageCodePage, GivesEachByteAMeaning) {
  for (const char* number : {"1250", "1251", "1252", "1253", "1254", "1255", "1256", "1257", "1258", "874"}) {
    const ScopedEnvironment wanted("QUBLET_CODEPAGE", number);
    const LanguageCodePage page;
    for (int byte = 1; byte < 256; ++byte) {
      const std::string text = page.Decode(std::string(1, static_cast<char>(byte)));
      EXPECT_TRUE(!text.empty() && IsValidUtf8(text)) << number << " " << byte;
      EXPECT_EQ(byte < 0x80, text.size() == 1 && text[0] == static_cast<char>(byte)) << number << " " << byte;
    }
  }
}

TEST(LanguageCodePage, ReadsTexts) {
  const ScopedEnvironment wanted("QUBLET_CODEPAGE", "1251");
  EXPECT_EQ(LanguageCodePage().Decode("c:\\\xCF\xE5\xF1\xED\xFF \x98.mp3"),
            "c:\\\u041F\u0435\u0441\u043D\u044F \u0098.mp3");
}

}  // namespace
}  // namespace qublet
