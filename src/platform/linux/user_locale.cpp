#include "platform/user_locale.h"

#include <utf8proc.h>

#include <locale>
#include <stdexcept>

namespace qublet {

std::string DigitGroupMark() {
  // Asked for as a wide character: in UTF-8 many locales have a separator of more than one byte.
  wchar_t code = 0;
  try {
    code = std::use_facet<std::numpunct<wchar_t>>(std::locale("")).thousands_sep();
  } catch (const std::runtime_error&) {  // what a locale throws that isn't installed
  }
  if (code == 0) return "";
  utf8proc_uint8_t bytes[4] = {};
  const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes);
  return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)};
}

}  // namespace qublet
