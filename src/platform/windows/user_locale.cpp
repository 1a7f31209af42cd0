#include "platform/user_locale.h"

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {

std::string DigitGroupMark() {
  wchar_t mark[8] = {};
  return GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_STHOUSAND, mark, static_cast<int>(std::size(mark))) > 0
             ? NarrowText(mark)
             : "";
}

}  // namespace qublet
