#include "platform/collation.h"

#include <windows.h>

namespace qublet {
namespace {

std::wstring Wide(std::string_view text) {
  const int room = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), room, wide.data(), room)));
  return wide;
}

class UserCollation : public Collation {
 public:
  std::string Key(std::string_view text) const override {
    const std::wstring wide = Wide(text);
    if (wide.empty()) return "";
    const int room = Write(wide, nullptr, 0);
    std::string key(static_cast<std::size_t>(room), '\0');
    Write(wide, key.data(), room);
    return key;
  }

 private:
  // Gives the length of the key in bytes; `room` 0 asks for it.
  static int Write(const std::wstring& text, char* key, int room) {
    return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_SORTKEY | LINGUISTIC_IGNORECASE, text.data(),
                         static_cast<int>(text.size()), reinterpret_cast<wchar_t*>(key), room, nullptr, nullptr, 0);
  }
};

}  // namespace

std::unique_ptr<Collation> OpenCollation() {
  return std::make_unique<UserCollation>();
}

}  // namespace qublet
