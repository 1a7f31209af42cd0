#include "platform/windows/handle.h"

#include "platform/failure.h"
#include "platform/windows/wide_text.h"

namespace qublet {

void FailWithLastError(const std::string& what, const std::string& native) {
  const DWORD error = GetLastError();
  wchar_t reason[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, reason,
                                static_cast<DWORD>(std::size(reason)), nullptr);
  while (length > 0 && reason[length - 1] <= L' ') --length;
  const std::string text = length > 0 ? NarrowText({reason, length}) : "error " + std::to_string(error);
  throw Failure("can't " + what + " \"" + native + "\": " + text);
}

Handle OpenExisting(const std::wstring& place, DWORD access) {
  // The flag is what opens a folder; it changes nothing for a file.
  return Handle(CreateFileW(place.c_str(), access, kSharedWithAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                            nullptr));
}

}  // namespace qublet
