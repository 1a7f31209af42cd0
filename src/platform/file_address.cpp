#include "platform/file_address.h"

#include <string_view>

namespace qublet {

std::string FileAddress(const std::string& native) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string address = "file://";
  for (const char byte : native) {
    if (kPlain.find(byte) != std::string_view::npos) {
      address += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      address += {'%', kDigits[value / 16], kDigits[value % 16]};
    }
  }
  return address;
}

}  // namespace qublet
