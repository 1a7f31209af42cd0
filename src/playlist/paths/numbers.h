#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/failure.h"

namespace qublet {

// Checked 32-bit and 16-bit arithmetic, and the ways numbers are rounded and read in this program.

// Throws Failure when the product doesn't fit 32 bits.
std::int32_t CheckedMultiply32(std::int32_t a, std::int32_t b);
// The sum of two numbers that aren't negative; the largest one when it doesn't fit. The sizes of two files may not.
std::int64_t SaturatingAdd(std::int64_t a, std::int64_t b);
// Nearest whole number, ties away from zero; the largest or smallest one when it doesn't fit.
std::int64_t NearestWhole(double value);

// Throws Failure when the value doesn't fit.
std::int32_t ToInteger32(std::int64_t value);
std::int16_t ToInteger16(std::int64_t value);

// Nearest whole number, ties to the even one. Throws Failure for a value that isn't finite or doesn't fit 32 bits.
std::int32_t RoundHalfEven(double value);

// Text to number: the whole text must be a decimal number (blanks around it, a sign, a fraction and an exponent are
// allowed). The integers are rounded half to even into the range. Throws Failure on anything else, "" included.
double TextToNumber(std::string_view text);
std::int16_t TextToInteger16(std::string_view text);
std::int32_t TextToInteger32(std::string_view text);

// The leading numeric value of a text, 0 when it starts with none ("5/12" is 5). Never fails.
double LeadingNumber(std::string_view text);

// A floating-point number as plain decimal text: no exponent, no locale, no separators, no needless zeros
// (44100 -> "44100", 0.5 -> "0.5").
std::string NumberText(double value);

// `value` in decimal, padded at the left with "0" to the length of the decimal text of `width_value`; never cut.
std::string PadNumberToWidth(std::int16_t value, std::int16_t width_value);

}  // namespace qublet
