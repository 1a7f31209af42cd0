#include "playlist/paths/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

template <typename Integer>
Integer Narrowed(std::int64_t value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
    throw Failure("number out of range", std::to_string(value));
  return static_cast<Integer>(value);
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

struct ParsedNumber {
  double value = 0;
  std::size_t length = 0;  // in bytes, sign included; 0 when there is no number
};

// The longest decimal number at the start of `text`. A number too large for a double is the largest one, a number too
// small is 0.
ParsedNumber ParseNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  const std::size_t sign = negative || text.starts_with('+') ? 1 : 0;
  const std::string_view digits = text.substr(sign);
  const bool begins = !digits.empty() && (IsDigit(digits[0]) || digits[0] == '.');
  if (!begins) return {};

  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const auto length = static_cast<std::size_t>(end - digits.data());
  if (error == std::errc::invalid_argument) return {};
  if (error == std::errc::result_out_of_range) {
    const std::string_view number = digits.substr(0, length);
    const bool tiny = number.find('-') != number.npos || number.starts_with('0') || number.starts_with('.');
    value = tiny ? 0 : std::numeric_limits<double>::max();
  }
  return {negative ? -value : value, sign + length};
}

}  // namespace

std::int32_t CheckedMultiply32(std::int32_t a, std::int32_t b) {
  return ToInteger32(static_cast<std::int64_t>(a) * b);
}

std::int64_t SaturatingAdd(std::int64_t a, std::int64_t b) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  return a > kMost - b ? kMost : a + b;
}

std::int64_t NearestWhole(double value) {
  constexpr double kBeyond = 9223372036854775808.0;
  if (value >= kBeyond) return std::numeric_limits<std::int64_t>::max();
  if (value < -kBeyond) return std::numeric_limits<std::int64_t>::min();
  return std::llround(value);
}

std::int32_t ToInteger32(std::int64_t value) {
  return Narrowed<std::int32_t>(value);
}

std::int16_t ToInteger16(std::int64_t value) {
  return Narrowed<std::int16_t>(value);
}

std::int32_t RoundHalfEven(double value) {
  const double rounded = std::nearbyint(value);
  const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                    rounded <= std::numeric_limits<std::int32_t>::max();  // False for a value that is no number
  if (!fits) throw Failure("number out of range");
  return static_cast<std::int32_t>(rounded);
}

double TextToNumber(std::string_view text) {
  const std::string trimmed = Trim(text);
  const ParsedNumber number = ParseNumber(trimmed);
  if (number.length == 0 || number.length != trimmed.size()) throw Failure("not a number", trimmed);
  return number.value;
}

std::int16_t TextToInteger16(std::string_view text) {
  return ToInteger16(TextToInteger32(text));
}

std::int32_t TextToInteger32(std::string_view text) {
  return RoundHalfEven(TextToNumber(text));
}

double LeadingNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  return start == text.npos ? 0 : ParseNumber(text.substr(start)).value;
}

std::string NumberText(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  char digits[512];  // the longest is the smallest number: a sign, "0.", 323 zeros and up to 17 digits
  const auto result = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed);
  return {digits, result.ptr};
}

std::string PadNumberToWidth(std::int16_t value, std::int16_t width_value) {
  const std::string digits = std::to_string(value);
  const std::size_t width = std::to_string(width_value).size();
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace qublet
