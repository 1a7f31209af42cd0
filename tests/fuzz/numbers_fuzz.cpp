#include "playlist/paths/numbers.h"

#include <cmath>

#include "fuzz/fuzz_input.h"
#include "settings/setting_rows.h"

using namespace qublet;

// Any text is read as a number or refused, and what is read is written as the same number; so are settings that
// hold numbers and truth values, and of one that holds a text no more is kept than was there.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = TextOf(data, size);
  Require(std::isfinite(LeadingNumber(text)));
  ResumeNext([&] {
    const double number = TextToNumber(text);
    Require(std::isfinite(number) && number == LeadingNumber(text));
    Require(TextToNumber(NumberText(number)) == number);
    const std::int32_t whole = TextToInteger32(text);
    Require(std::abs(number - whole) <= 0.5);
    Require(TextToInteger32(std::to_string(whole)) == whole);
  });
  for (const SettingRow& row : SettingRows()) {
    const auto value = ReadSetting(row, text);
    if (!value) continue;
    const std::string written = WriteSetting(row, *value);
    if (row.code == SettingCode::kText) Require(text.find(written) != text.npos);
    if (row.code != SettingCode::kText) Require(ReadSetting(row, written) == value);
  }
  return 0;
}
