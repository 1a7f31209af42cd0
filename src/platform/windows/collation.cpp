#include "platform/collation.h"

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

class UserCollation : public Collation {
 public:
  std::string Key(std::string_view text) const override {
    const std::wstring wide = WideText(text);
    if (wide.empty()) return "";
    std::string key(wide.size() * 8 + 16, '\0');
    int length = Write(wide, key);
    if (length == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
      std::string none;
      key.resize(static_cast<std::size_t>(Write(wide, none)));
      length = Write(wide, key);
    }
    key.resize(static_cast<std::size_t>(length));
    return key;
  }

 private:
  // Gives the length of the key in bytes; an empty `key` asks for it.
  static int Write(const std::wstring& text, std::string& key) {
    return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_SORTKEY | NORM_IGNORECASE, text.data(),
                         static_cast<int>(text.size()), reinterpret_cast<wchar_t*>(key.data()),
                         static_cast<int>(key.size()), nullptr, nullptr, 0);
  }
};

}  // namespace

std::unique_ptr<Collation> OpenCollation() {
  return std::make_unique<UserCollation>();
}

}  // namespace qublet
