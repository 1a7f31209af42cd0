#include "platform/collation.h"

#include <locale.h>
#include <string.h>
#include <utf8proc.h>
#include <wctype.h>

#include <algorithm>
#include <array>
#include <vector>

namespace qublet {
namespace {

// Texts without the difference of case: by the locale, which knows the letters of its language best, else by Unicode.
class SmallLetters {
 public:
  explicit SmallLetters(locale_t locale) : locale_(locale) {
    for (std::size_t c = 0; c < ascii_.size(); ++c) ascii_[c] = Small(static_cast<utf8proc_int32_t>(c));
  }

  std::string Of(std::string_view text) const {
    std::string small;
    small.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
      const auto first = static_cast<unsigned char>(text[at]);
      utf8proc_int32_t code = first;
      utf8proc_ssize_t length = 1;
      if (first >= ascii_.size()) {
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at;
        length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &code);
      }
      if (length <= 0) {
        small += text[at++];  // no UTF-8: a byte of its own
        continue;
      }
      Append(small, first < ascii_.size() ? ascii_[first] : Small(code));
      at += static_cast<std::size_t>(length);
    }
    return small;
  }

 private:
  utf8proc_int32_t Small(utf8proc_int32_t code) const {
    const auto own = static_cast<utf8proc_int32_t>(towlower_l(static_cast<wint_t>(code), locale_));
    return own != code ? own : utf8proc_tolower(code);
  }

  static void Append(std::string& text, utf8proc_int32_t code) {
    if (code < 0x80) {
      text += static_cast<char>(code);
      return;
    }
    std::array<utf8proc_uint8_t, 4> bytes{};
    const auto length = utf8proc_encode_char(code, bytes.data());
    text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length));
  }

  locale_t locale_;
  std::array<utf8proc_int32_t, 0x80> ascii_{};
};

constexpr char kBetween = 1;  // two levels of a key

std::string LibraryKey(const std::string& text, locale_t locale) {
  std::array<char, 2048> room;  // a key has several times the length of its text
  const std::size_t length = strxfrm_l(room.data(), text.c_str(), room.size(), locale);
  if (length < room.size()) return {room.data(), length};
  std::string key(length + 1, '\0');
  strxfrm_l(key.data(), text.c_str(), key.size(), locale);
  key.resize(length);
  return key;
}

// Puts the library's keys of ASCII texts together from the keys of their characters, several times as fast as the
// library does. A key is a row of levels, and a level is what the characters have there, one after the other. Not so
// in languages in which two letters mean more than one and the other, like "ch" in Czech: there it makes none.
class AsciiKeys {
 public:
  AsciiKeys(const SmallLetters& small, locale_t locale) {
    const std::string letter = LibraryKey("a", locale);
    const auto levels = static_cast<std::size_t>(1 + std::count(letter.begin(), letter.end(), kBetween));
    levels_ = std::min(kMostLevels, levels);
    std::string letters;
    for (char c = kFirst; c <= kLast; ++c) {
      const std::string text = small.Of({&c, 1});
      if (!CutUp(LibraryKey(text, locale), pieces_[Place(c)])) return;
      const bool again = text.size() == 1 && text[0] != c;  // a capital, here as its small letter
      if (!again) letters += c;
    }
    const std::string meetings = Meetings(letters);
    std::vector<char> room((meetings.size() + 1) * kRoomForOne);
    usable_ = Write(meetings, room.data()) == LibraryKey(small.Of(meetings), locale);
  }

  bool CanMake(std::string_view text) const {
    return usable_ && !text.empty() && text.size() <= kLongest &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= kFirst && c <= kLast; });
  }

  std::string Key(std::string_view text) const {
    std::array<char, (kLongest + 1) * kRoomForOne> room;
    return std::string(Write(text, room.data()));
  }

 private:
  static constexpr char kFirst = ' ';
  static constexpr char kLast = '~';
  static constexpr std::size_t kLongest = 255;
  static constexpr std::size_t kMostLevels = 4;
  static constexpr std::size_t kMostBytes = 8;  // of one character on one level
  static constexpr std::size_t kRoomForOne = kMostLevels * kMostBytes;

  struct Piece {
    std::array<char, kMostBytes> bytes{};
    std::size_t length = 0;
  };
  using Pieces = std::array<Piece, kMostLevels>;

  static std::size_t Place(char c) { return static_cast<std::size_t>(c - kFirst); }

  bool CutUp(std::string_view key, Pieces& pieces) const {
    for (std::size_t level = 0; level < levels_; ++level) {
      const std::size_t end = level + 1 < levels_ ? key.find(kBetween) : key.size();
      if (end > kMostBytes) return false;
      pieces[level].length = key.copy(pieces[level].bytes.data(), end);
      key.remove_prefix(std::min(end + 1, key.size()));
    }
    return true;
  }

  // Each letter before and behind each other one, and itself.
  static std::string Meetings(const std::string& letters) {
    std::string text;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      text += letters[i];
      for (std::size_t k = i; k < letters.size(); ++k) (text += letters[k]) += letters[i];
    }
    return text;
  }

  // Each piece is written with all of its room, of which the next one takes back what isn't used.
  std::string_view Write(std::string_view text, char* room) const {
    char* end = room;
    for (std::size_t level = 0; level < levels_; ++level) {
      if (level > 0) *end++ = kBetween;
      for (const char c : text) {
        const Piece& piece = pieces_[Place(c)][level];
        memcpy(end, piece.bytes.data(), kMostBytes);
        end += piece.length;
      }
    }
    return {room, static_cast<std::size_t>(end - room)};
  }

  std::array<Pieces, kLast - kFirst + 1> pieces_{};
  std::size_t levels_ = 1;
  bool usable_ = false;
};

class OwnedLocale {
 public:
  OwnedLocale() : locale_(newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, "", nullptr)) {
    if (locale_ == nullptr) locale_ = newlocale(LC_ALL_MASK, "C", nullptr);
  }
  ~OwnedLocale() { freelocale(locale_); }
  OwnedLocale(const OwnedLocale&) = delete;
  OwnedLocale& operator=(const OwnedLocale&) = delete;

  locale_t Get() const { return locale_; }

 private:
  locale_t locale_;
};

// Collates by the C library. It knows case only as the last difference between two texts, so a text is made small
// first.
class LocaleCollation : public Collation {
 public:
  std::string Key(std::string_view text) const override {
    return ascii_.CanMake(text) ? ascii_.Key(text) : LibraryKey(small_.Of(text), locale_.Get());
  }

 private:
  const OwnedLocale locale_;
  const SmallLetters small_{locale_.Get()};
  const AsciiKeys ascii_{small_, locale_.Get()};
};

}  // namespace

std::unique_ptr<Collation> OpenCollation() {
  return std::make_unique<LocaleCollation>();
}

}  // namespace qublet
