#include "platform/collation.h"

#include <locale.h>
#include <string.h>
#include <utf8proc.h>
#include <wctype.h>

#include <array>

namespace qublet {
namespace {

// Collates by the C library. It knows case only as the last difference between two texts, so a text is made small
// first: by the locale, which knows the letters of its language best, else by Unicode.
class LocaleCollation : public Collation {
 public:
  LocaleCollation() : locale_(newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, "", nullptr)) {
    if (locale_ == nullptr) locale_ = newlocale(LC_ALL_MASK, "C", nullptr);
    for (std::size_t c = 0; c < small_.size(); ++c) small_[c] = Small(static_cast<utf8proc_int32_t>(c));
  }
  ~LocaleCollation() override { freelocale(locale_); }
  LocaleCollation(const LocaleCollation&) = delete;
  LocaleCollation& operator=(const LocaleCollation&) = delete;

  std::string Key(std::string_view text) const override {
    const std::string small = SmallText(text);
    std::array<char, 2048> room;  // a key has several times the length of its text
    const std::size_t length = strxfrm_l(room.data(), small.c_str(), room.size(), locale_);
    if (length < room.size()) return {room.data(), length};
    std::string key(length + 1, '\0');
    strxfrm_l(key.data(), small.c_str(), key.size(), locale_);
    key.resize(length);
    return key;
  }

 private:
  utf8proc_int32_t Small(utf8proc_int32_t code) const {
    const auto own = static_cast<utf8proc_int32_t>(towlower_l(static_cast<wint_t>(code), locale_));
    return own != code ? own : utf8proc_tolower(code);
  }

  std::string SmallText(std::string_view text) const {
    std::string small;
    small.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
      const auto first = static_cast<unsigned char>(text[at]);
      utf8proc_int32_t code = first;
      utf8proc_ssize_t length = 1;
      if (first >= small_.size()) {
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at;
        length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &code);
      }
      if (length <= 0) {
        small += text[at++];  // no UTF-8: a byte of its own
        continue;
      }
      Append(small, first < small_.size() ? small_[first] : Small(code));
      at += static_cast<std::size_t>(length);
    }
    return small;
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
  std::array<utf8proc_int32_t, 0x80> small_{};
};

}  // namespace

std::unique_ptr<Collation> OpenCollation() {
  return std::make_unique<LocaleCollation>();
}

}  // namespace qublet
