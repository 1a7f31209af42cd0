#include "platform/windows/user_folders.h"

#include "platform/windows/windows_api.h"

#include <shlobj.h>

#include "platform/failure.h"
#include "platform/windows/wide_text.h"

namespace qublet {

std::string EnvironmentText(const wchar_t* name) {
  const DWORD room = GetEnvironmentVariableW(name, nullptr, 0);
  if (room == 0) return "";
  std::wstring value(room, L'\0');
  const DWORD length = GetEnvironmentVariableW(name, value.data(), room);
  return length < room ? NarrowText({value.data(), length}) : "";
}

std::string LocalDataFolder() {
  const std::string named = EnvironmentText(L"LOCALAPPDATA");
  if (!named.empty()) return named;
  wchar_t* folder = nullptr;
  const HRESULT result = SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &folder);
  const std::string native = SUCCEEDED(result) ? NarrowText(folder) : "";
  CoTaskMemFree(folder);
  if (native.empty()) throw Failure("this user has no folder for the data of programs");
  return native;
}

}  // namespace qublet
