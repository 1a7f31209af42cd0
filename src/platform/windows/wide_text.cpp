#include "platform/windows/wide_text.h"

#include "platform/windows/windows_api.h"

namespace qublet {

std::wstring WideText(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // never more units than bytes
  wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size)));
  return wide;
}

std::string NarrowText(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int most = size * 3;
  std::string narrow(static_cast<std::size_t>(most), '\0');
  narrow.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), most, nullptr, nullptr)));
  return narrow;
}

}  // namespace qublet
