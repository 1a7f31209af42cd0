#include "playlist/paths/formats.h"

#include "platform/user_locale.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool StaysInTagText(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ' ';
}

}  // namespace

std::string YesNoText(int flag) {
  return flag != 0 ? "Yes" : "No";
}

int BoolToFlag(int value) {
  return value != 0 ? 1 : 0;
}

bool FlagToBool(int value) {
  return value == 1;
}

std::string UserThousandsSeparator() {
  const std::string mark = DigitGroupMark();
  return mark.empty() ? "," : mark;
}

std::string GroupedNumber(std::int64_t number, std::string_view thousands_separator) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) {
    at -= 3;
    text.insert(at, thousands_separator);
  }
  return text;
}

std::string FormatSize(double bytes, std::string_view thousands_separator) {
  constexpr double kKilo = 1024;
  constexpr double kMega = kKilo * kKilo;
  const auto whole = [&](double amount) { return GroupedNumber(NearestWhole(amount), thousands_separator); };
  if (bytes == 0) return "0 Bytes";
  if (bytes > 16 * kMega) return whole(bytes / kMega) + " Mb";
  if (bytes > 16 * kKilo) return whole(bytes / kKilo) + " Kb";
  if (bytes > 1) return whole(bytes) + " Bytes";
  return "";
}

std::string FormatTime(std::int64_t seconds) {
  const std::int64_t h = seconds / 3600;
  const std::int64_t m = seconds % 3600 / 60;
  const std::int64_t s = seconds % 60;
  std::string text;
  if (h >= 1) text.append(std::to_string(h)).append(m <= 9 ? ":0" : ":");
  return text.append(std::to_string(m)).append(s <= 9 ? ":0" : ":").append(std::to_string(s));
}

std::string CleanTagText(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string clean;
  for (std::size_t at = 0; at < trimmed.size(); at += CharacterLength(trimmed, at)) {
    const char c = StaysInTagText(trimmed[at]) ? trimmed[at] : ' ';
    if (c != ' ' || !clean.ends_with(' ')) clean += c;
  }
  return clean;
}

}  // namespace qublet
