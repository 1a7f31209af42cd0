#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace qublet {

// How values are shown. The boundaries of FormatSize are the ones people know from the list; they are not the usual
// ones and stay.

// "Yes" unless `flag` is 0.
std::string YesNoText(int flag);
// A Boolean as it is stored: 1 unless `value` is 0, and back: True only for 1 (so a stored -1 reads as False).
int BoolToFlag(int value);
bool FlagToBool(int value);

// The mark between groups of three digits in this user's locale, "," when the locale has none or can't be read.
// Asked once, at the start of the program.
std::string UserThousandsSeparator();

// "1,234,567"; for numbers of 0 and more.
std::string GroupedNumber(std::int64_t number, std::string_view thousands_separator = ",");

// "0 Bytes", "16,384 Bytes", "16 Kb" (above 16384), "16 Mb" (above 16777216); whole numbers, halves away from zero.
// "" for 1, for fractions below that and for anything below 0. An average may be a fraction: 1.6 is "2 Bytes".
std::string FormatSize(double bytes, std::string_view thousands_separator = ",");
template <std::integral Whole>
std::string FormatSize(Whole bytes, std::string_view thousands_separator = ",") {
  return FormatSize(static_cast<double>(bytes), thousands_separator);
}

// "0:05", "10:00", "1:01:01"; hours go on beyond 24.
std::string FormatTime(std::int64_t seconds);

// Trimmed, with every character but "0-9A-Za-z " turned into a blank and runs of blanks into one. Not trimmed again:
// a symbol at an end leaves a blank there.
std::string CleanTagText(std::string_view text);

}  // namespace qublet
