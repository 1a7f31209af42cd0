#include "platform/file_address.h"

namespace qublet {

std::string PercentEncoded(std::string_view text, std::string_view kept) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char byte : text) {
    if (kPlain.find(byte) != kPlain.npos || kept.find(byte) != kept.npos) {
      encoded += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      encoded += {'%', kDigits[value / 16], kDigits[value % 16]};
    }
  }
  return encoded;
}

std::string FileAddress(const std::string& native) {
  return "file://" + PercentEncoded(native, "/");
}

}  // namespace qublet
