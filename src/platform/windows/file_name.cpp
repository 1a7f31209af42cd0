#include "platform/file_name.h"

#include <algorithm>

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {

std::string NameRefusal(const std::string& name) {
  constexpr std::string_view kForbidden = "<>:\"/|?*";
  constexpr std::size_t kLongest = 255;  // units of UTF-16
  const bool forbidden = std::ranges::any_of(name, [&](char letter) {
    return static_cast<unsigned char>(letter) < 0x20 || kForbidden.find(letter) != kForbidden.npos;
  });
  if (forbidden) return "the name holds a forbidden character";
  return WideText(name).size() > kLongest ? "the name is too long" : "";
}

std::string PathKey(const std::string& path) {
  std::wstring wide = WideText(path);
  CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return NarrowText(wide);
}

}  // namespace qublet
