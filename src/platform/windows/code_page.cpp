#include "platform/code_page.h"

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {

std::optional<std::string> ToCodePage(std::string_view utf8) {
  if (utf8.empty()) return "";
  if (!IsValidUtf8(utf8)) return std::nullopt;
  const std::wstring wide = WideText(utf8);
  const int size = static_cast<int>(wide.size());
  // A page that is UTF-8 itself knows neither flag nor substitute, and lacks nothing.
  const bool lacks_none = GetACP() == CP_UTF8;
  const DWORD flags = lacks_none ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL substituted = FALSE;
  BOOL* const asked = lacks_none ? nullptr : &substituted;
  const int room = WideCharToMultiByte(CP_ACP, flags, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(room), '\0');
  const int length = WideCharToMultiByte(CP_ACP, flags, wide.data(), size, bytes.data(), room, nullptr, asked);
  if (length <= 0 || substituted) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

std::string FromCodePage(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  std::wstring wide(bytes.size() * 2, L'\0');
  const int room = static_cast<int>(wide.size());
  wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), room)));
  return NarrowText(wide);
}

}  // namespace qublet
