#include "platform/computer_name.h"

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {

std::string ComputerName() {
  wchar_t name[256] = {};
  DWORD length = 255;
  return GetComputerNameExW(ComputerNameDnsHostname, name, &length) ? NarrowText(std::wstring(name, length)) : "";
}

}  // namespace qublet
