#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qublet {

// As it stands in an address (RFC 3986): each byte but letters, digits, "-._~" and the kept ones as "%" and two
// digits.
std::string PercentEncoded(std::string_view text, std::string_view kept);
// Each "%" with two digits as its byte; a "%" without them stays. What comes may be no UTF-8.
std::string PercentDecoded(std::string_view text);

// The address of a file with an absolute path of the form "/home/u/a b.mp3" for other programs (RFC 8089):
// "file:///home/u/a%20b.mp3".
std::string FileAddress(const std::string& native);

// "http://..." and its like: a scheme of two letters or more.
bool IsAddress(std::string_view text);

struct AddressedFile {
  std::string host;  // "" for this computer
  std::string path;  // as it stands there, with a "/" in front ("/home/u/a%20b.mp3", "/C:/Music/a.mp3")
};
// What an address that begins with "file:/" names; nothing for any other text.
std::optional<AddressedFile> FileOfAddress(std::string_view address);

}  // namespace qublet
