#include "platform/collation.h"

#include <gtest/gtest.h>

#include <locale.h>
#include <string.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <random>
#include <vector>

namespace qublet {
namespace {

class CollationTest : public testing::Test {
 protected:
  CollationTest() {
    for (const char* name : {"LC_ALL", "LC_COLLATE", "LC_CTYPE", "LANG"}) {
      const char* value = std::getenv(name);
      before_.push_back({name, value != nullptr ? value : "", value != nullptr});
    }
  }
  ~CollationTest() override {
    for (const Variable& variable : before_) {
      variable.set ? setenv(variable.name, variable.value.c_str(), 1) : unsetenv(variable.name);
    }
  }
  static std::unique_ptr<Collation> CollationOf(const char* locale) {
    setenv("LC_ALL", locale, 1);
    return OpenCollation();
  }
  static std::vector<std::string> Sorted(const Collation& collation, std::vector<std::string> texts) {
    std::stable_sort(texts.begin(), texts.end(), [&](const std::string& one, const std::string& other) {
      return collation.Key(one) < collation.Key(other);
    });
    return texts;
  }

 private:
  struct Variable {
    const char* name;
    std::string value;
    bool set;
  };
  std::vector<Variable> before_;
};

using Texts = std::vector<std::string>;

TEST_F(CollationTest, IgnoresCaseInEveryScript) {
  for (const char* locale : {"C.UTF-8", "C", "no_SUCH.locale"}) {
    const auto collation = CollationOf(locale);
    EXPECT_EQ(collation->Key("Ab.MP3"), collation->Key("aB.mp3")) << locale;
    EXPECT_EQ(collation->Key("\u00C9t\u00E9"), collation->Key("\u00E9T\u00C9")) << locale;
    EXPECT_EQ(collation->Key("\u041F\u0440\u0438"), collation->Key("\u043F\u0420\u0418")) << locale;
    EXPECT_EQ(collation->Key("\U00010400"), collation->Key("\U00010428")) << locale;
  }
}

// A text of printable ASCII, of any length up to a long file name's.
std::string RandomText(std::mt19937& random) {
  std::string text(random() % 300, ' ');
  for (char& c : text) c = static_cast<char>(' ' + random() % 95);
  return text;
}

// The key of the C library itself, of the text in small letters.
std::string KeyOfTheLibrary(std::string text, const char* name) {
  for (char& c : text) c = static_cast<char>(std::tolower(c));
  locale_t locale = newlocale(LC_ALL_MASK, name, nullptr);
  if (locale == nullptr) locale = newlocale(LC_ALL_MASK, "C", nullptr);
  std::string key(strxfrm_l(nullptr, text.c_str(), 0, locale) + 1, ' ');
  strxfrm_l(key.data(), text.c_str(), key.size(), locale);
  key.pop_back();
  freelocale(locale);
  return key;
}

// A language that this system doesn't know counts as "C". In Czech and Hungarian some letters stand together for one.
TEST_F(CollationTest, GivesAsciiTextsTheKeysOfTheLibrary) {
  std::mt19937 random(2);
  for (const char* locale : {"C.UTF-8", "C", "en_US.UTF-8", "de_DE.UTF-8", "cs_CZ.UTF-8", "hu_HU.UTF-8"}) {
    const auto collation = CollationOf(locale);
    EXPECT_EQ(collation->Key(""), KeyOfTheLibrary("", locale)) << locale;
    for (int i = 0; i < 300; ++i) {
      const std::string text = RandomText(random);
      ASSERT_EQ(collation->Key(text), KeyOfTheLibrary(text, locale)) << locale << ": " << text;
    }
  }
}

TEST_F(CollationTest, PutsAsciiTextsAndOthersIntoOneOrder) {
  const auto collation = CollationOf("C.UTF-8");
  EXPECT_EQ(Sorted(*collation, {"\u00DCber", "zu", "Uhr", "\u00FCb"}), (Texts{"Uhr", "zu", "\u00FCb", "\u00DCber"}));
}

TEST_F(CollationTest, PutsLettersInTheirOrder) {
  for (const char* locale : {"C.UTF-8", "no_SUCH.locale"}) {
    const auto collation = CollationOf(locale);
    EXPECT_EQ(Sorted(*collation, {"b", "C", "a", "B2", "", "b1"}), (Texts{"", "a", "b", "b1", "B2", "C"})) << locale;
  }
}

TEST_F(CollationTest, TakesBytesThatAreNoTextAsTheyAre) {
  const auto collation = CollationOf("C.UTF-8");
  const Texts odd{"\xFF", "a\xC3", "\xE2\x82", std::string("a\0b", 3), "\xED\xA0\x80"};
  for (const std::string& text : odd) EXPECT_EQ(collation->Key(text), collation->Key(text));
  EXPECT_NE(collation->Key("a\xC3"), collation->Key("a\xC4"));
}

TEST_F(CollationTest, GivesAKeyForAVeryLongText) {
  const auto collation = CollationOf("C.UTF-8");
  const std::string text(1'000'000, 'x');
  EXPECT_LT(collation->Key(text), collation->Key(text + "y"));
  EXPECT_EQ(collation->Key(text), collation->Key(std::string(1'000'000, 'X')));
}

}  // namespace
}  // namespace qublet
