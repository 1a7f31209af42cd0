#include "settings/about/system_info.h"

#include <cstdint>
#include <string_view>

#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"

namespace qublet {
namespace {

std::string Decimal(std::string_view bytes) {
  std::uint32_t number = 0;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
    number = number << 8 | static_cast<std::uint8_t>(*byte);
  return std::to_string(number);
}

std::string Hexadecimal(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "&h";
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    text += {kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return text;
}

std::string TextOf(const MachineValue& value) {
  switch (value.kind) {
    case MachineValue::Kind::kText:
      return value.bytes.substr(0, value.bytes.find('\0'));
    case MachineValue::Kind::kNumber:
      return Decimal(value.bytes);
    case MachineValue::Kind::kBytes:
      return Hexadecimal(value.bytes);
    case MachineValue::Kind::kOther:
      break;
  }
  return "";
}

// "" when there is no such tool.
std::string SystemInfoProgram(const Services& services) {
  std::string path;
  if (GetKeyValue(services.machine_values, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", path)) return path;
  if (!GetKeyValue(services.machine_values, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", path)) return "";
  path += "\\MSINFO32.EXE";
  return FileExists(services.files, path) ? path : "";
}

}  // namespace

bool GetKeyValue(const MachineValues& values, const std::string& KeyName, const std::string& SubKeyRef,
                 std::string& KeyVal) {
  const std::optional<MachineValue> value = values(KeyName, SubKeyRef);
  KeyVal = value ? TextOf(*value) : "";
  return value.has_value();
}

void StartSysInfo(const Services& services) {
  const std::string program = SystemInfoProgram(services);
  if (!program.empty()) {
    services.shell.Open(NormalizedPath(program));
    return;
  }
  services.dialogs.ShowMessage("System Information Is Unavailable At This Time", MessageIcon::kExclamation,
                               MessageButtons::kOk);
}

}  // namespace qublet
