#include "platform/user_locale.h"

#include <utf8proc.h>

#include <locale>

#include "platform/failure.h"

namespace qublet {

std::string DigitGroupMark() {
  std::string mark;
  // Asked for as a wide character: in UTF-8 many locales have a separator of more than one byte.
  ResumeNext([&] {
    const std::locale user("");
    const wchar_t code = std::use_facet<std::numpunct<wchar_t>>(user).thousands_sep();
    utf8proc_uint8_t bytes[4] = {};
    if (code == 0) return;
    const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes);
    mark.assign(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
  });
  return mark;
}

}  // namespace qublet
