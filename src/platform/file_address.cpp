#include "platform/file_address.h"

#include <algorithm>

#include "platform/computer_name.h"
#include "platform/drive_form.h"

namespace qublet {
namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char one, char other) {
    return one == other || (IsLetter(one) && IsLetter(other) && (one | 0x20) == (other | 0x20));
  });
}

bool IsThisComputer(std::string_view host) {
  return host.empty() || SameIgnoringCase(host, "localhost") || SameIgnoringCase(host, ComputerName());
}

}  // namespace

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

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
    const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
    if (low < 0) {
      decoded += text[i];
    } else {
      decoded += static_cast<char>(high * 16 + low);
      i += 2;
    }
  }
  return decoded;
}

std::string FileAddress(const std::string& native) {
  return "file://" + PercentEncoded(native, "/");
}

bool IsAddress(std::string_view text) {
  const std::size_t scheme_end = text.find("://");
  if (scheme_end == text.npos || scheme_end < 2 || !IsLetter(text.front())) return false;
  const std::string_view scheme = text.substr(0, scheme_end);
  return std::all_of(scheme.begin(), scheme.end(),
                     [](char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.'; });
}

std::optional<AddressedFile> FileOfAddress(std::string_view address) {
  constexpr std::string_view kScheme = "file:";
  if (!SameIgnoringCase(address.substr(0, kScheme.size()), kScheme)) return std::nullopt;
  std::string_view rest = address.substr(kScheme.size());
  if (!rest.starts_with('/')) return std::nullopt;
  AddressedFile file;
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    // Some write a drive where a host would stand.
    const std::size_t host_end = HasDrive(rest) ? 0 : std::min(rest.find('/'), rest.size());
    const std::string_view host = rest.substr(0, host_end);
    if (!IsThisComputer(host)) file.host = host;
    rest.remove_prefix(host_end);
  }
  file.path = rest.starts_with('/') ? rest : "/" + std::string(rest);
  return file;
}

}  // namespace qublet
