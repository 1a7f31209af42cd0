#include "platform/machine_values.h"

#include "platform/windows/windows_api.h"

#include <vector>

#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr DWORD kMostBytes = 1024;

MachineValue ValueOf(DWORD type, const std::vector<BYTE>& bytes) {
  const std::string plain(bytes.begin(), bytes.end());
  switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ: {
      std::wstring wide;
      for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        wide += static_cast<wchar_t>(bytes[i] | static_cast<unsigned>(bytes[i + 1]) << 8);
      return {MachineValue::Kind::kText, NarrowText(wide)};
    }
    case REG_DWORD:
      return {MachineValue::Kind::kNumber, plain};
    case REG_BINARY:
      return {MachineValue::Kind::kBytes, plain};
    default:
      return {MachineValue::Kind::kOther, plain};
  }
}

std::optional<MachineValue> Read(const std::string& key, const std::string& name) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, WideText(key).c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS)
    return std::nullopt;
  // A character of a text takes two bytes here.
  std::vector<BYTE> bytes(2 * kMostBytes);
  auto size = static_cast<DWORD>(bytes.size());
  DWORD type = REG_NONE;
  const LSTATUS status = RegQueryValueExW(opened, WideText(name).c_str(), nullptr, &type, bytes.data(), &size);
  RegCloseKey(opened);
  const bool text = type == REG_SZ || type == REG_EXPAND_SZ;
  if (status != ERROR_SUCCESS || (!text && size > kMostBytes)) return std::nullopt;
  bytes.resize(size);
  return ValueOf(type, bytes);
}

}  // namespace

MachineValues OpenMachineValues() {
  return Read;
}

}  // namespace qublet
