#include "settings/setting_rows.h"

#include <algorithm>

#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

template <auto Member>
auto& Part(auto& settings) {
  return settings.*Member;
}

template <auto Member, std::size_t Index>
auto& Part(auto& settings) {
  return (settings.*Member)[Index];
}

SettingValue AsValue(bool field) {
  return field;
}

SettingValue AsValue(std::int32_t field) {
  return field;
}

SettingValue AsValue(const std::string& field) {
  return field;
}

void Take(bool& field, const SettingValue& value) {
  field = std::get<bool>(value);
}

void Take(std::int16_t& field, const SettingValue& value) {
  field = static_cast<std::int16_t>(std::get<std::int32_t>(value));
}

void Take(std::int32_t& field, const SettingValue& value) {
  field = std::get<std::int32_t>(value);
}

void Take(std::string& field, const SettingValue& value) {
  field = std::get<std::string>(value);
}

template <auto Member, std::size_t... Index>
constexpr SettingField Field = {
    [](const AppSettings& settings) -> SettingValue { return AsValue(Part<Member, Index...>(settings)); },
    [](AppSettings& settings, const SettingValue& value) { Take(Part<Member, Index...>(settings), value); }};

using enum SettingCode;
using S = AppSettings;

constexpr std::int32_t kLeast32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost16 = std::numeric_limits<std::int16_t>::max();
constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();

constexpr SettingRow kRows[] = {
    {"ToolB", "Flat", kWord, Field<&S::Flat>, "True"},
    {"ToolB", "3D", kWord, Field<&S::ThreeD>, "True"},
    {"ToolB", "Align", kInteger16, Field<&S::Align>, "2", 1, 2},
    {"Menu", "Visible", kWord, Field<&S::Visible>, "True"},
    {"VE", "SA", kFlag, Field<&S::SA>, "1"},
    {"VE", "TA", kFlag, Field<&S::TA>, "1"},
    {"TableB", "BC", kInteger32, Field<&S::BC>, "21306", kLeast32, kMost32},
    {"TableB", "FC", kInteger32, Field<&S::FC>, "57284", kLeast32, kMost32},
    {"TableFont", "Name", kText, Field<&S::Name>, "Arial Narrow", 0, 100},
    {"TableFont", "Size", kInteger16, Field<&S::Size>, "8", 1, 200},
    {"TableFont", "Italic", kWord, Field<&S::Italic>, "False"},
    {"TableFont", "Bold", kWord, Field<&S::Bold>, "False"},
    {"TableFont", "Strikethrough", kWord, Field<&S::Strikethrough>, "False"},
    {"TableFont", "Underline", kWord, Field<&S::Underline>, "False"},
    {"TableB", "TX1", kWord, Field<&S::TX, 0>, "True"},
    {"TableB", "TV1", kInteger16, Field<&S::TV, 0>, "", 0, kMost16},
    {"TableB", "TX2", kWord, Field<&S::TX, 1>, "True"},
    {"TableB", "TV2", kInteger16, Field<&S::TV, 1>, "", 0, kMost16},
    {"TableB", "TX3", kWord, Field<&S::TX, 2>, "True"},
    {"TableB", "TV3", kInteger16, Field<&S::TV, 2>, "", 0, kMost16},
    {"TableB", "TX4", kWord, Field<&S::TX, 3>, "True"},
    {"TableB", "TV4", kInteger16, Field<&S::TV, 3>, "", 0, kMost16},
    {"TableB", "TX5", kWord, Field<&S::TX, 4>, "True"},
    {"TableB", "TV5", kInteger16, Field<&S::TV, 4>, "", 0, kMost16},
    {"TableB", "TX6", kWord, Field<&S::TX, 5>, "True"},
    {"TableB", "TV6", kInteger16, Field<&S::TV, 5>, "", 0, kMost16},
    {"TableB", "TX7", kWord, Field<&S::TX, 6>, "True"},
    {"TableB", "TV7", kInteger16, Field<&S::TV, 6>, "", 0, kMost16},
    {"TableB", "TX8", kWord, Field<&S::TX, 7>, "True"},
    {"TableB", "TV8", kInteger16, Field<&S::TV, 7>, "", 0, kMost16},
    {"TableB", "TX9", kWord, Field<&S::TX, 8>, "True"},
    {"TableB", "TV9", kInteger16, Field<&S::TV, 8>, "", 0, kMost16},
    {"PS", "H", kInteger16, Field<&S::H>, "6000"},
    {"PS", "T", kInteger16, Field<&S::T>, "1900"},
    {"PS", "W", kInteger16, Field<&S::W>, "7920"},
    {"PS", "L", kInteger16, Field<&S::L>, "800"},
    {"SSE", "RESPLAYLIST", kFlag, Field<&S::RESPLAYLIST>, "1"},
    {"SSE", "WINSTART", kFlag, Field<&S::WINSTART>, "0"},
    {"SSE", "PROMPTSORT", kFlag, Field<&S::PROMPTSORT>, "1"},
    {"SSE", "PROMPTMISS", kFlag, Field<&S::PROMPTMISS>, "1"},
    {"SSE", "DBLCLKACTN", kFlag, Field<&S::DBLCLKACTN>, "1"},
    {"SSE", "SHUFFLEINT", kInteger16, Field<&S::SHUFFLEINT>, "1", 1, 10},
    {"SSE", "GRID", kFlag, Field<&S::GRID>, "0"},
    {"SSE", "HOTTRACK", kFlag, Field<&S::HOTTRACK>, "0"},
    {"SSE", "RCount", kInteger16, Field<&S::RCount>, "10", 1, 20},
    {"SSE", "RPath", kWord, Field<&S::RPath>, "False"},
    {"SSE", "RPurge", kWord, Field<&S::RPurge>, "False"},
    {"SSE", "SActi", kWord, Field<&S::SActi>, "True"},
    {"SSE", "Idir", kText, Field<&S::Idir>, "", 0, 255},
    {"SSE", "PLTSC", kWord, Field<&S::PLTSC>, "False"},
    {"SSE", "PLTSP", kInteger32, Field<&S::PLTSP>, "120", 0, kMost32},
    {"SSE", "PLTTC", kWord, Field<&S::PLTTC>, "False"},
    {"SSE", "PLTTP", kInteger32, Field<&S::PLTTP>, "4800", 0, kMost32},
    {"SSE", "PLTCC", kWord, Field<&S::PLTCC>, "False"},
    {"SSE", "PLTCP", kInteger32, Field<&S::PLTCP>, "15", 0, kMost32},
    {"SSE", "DefSName", kText, Field<&S::DefSName>, "%0", 0, 255},
    {"SSE", "AUDate", kWord, Field<&S::AUDate>, "True"},
    {"SSE", "V", kFlag, Field<&S::V>, "1"},
};

bool WordToBoolean(std::string_view text) {
  const std::string word = LowerCase(Trim(text));
  return word == "true" || (word != "false" && TextToNumber(word) != 0);
}

SettingValue Converted(const SettingRow& row, std::string_view text) {
  switch (row.code) {
    case kWord:
      return WordToBoolean(text);
    case kFlag:
      return FlagToBool(TextToInteger32(text));
    case kInteger16:
      return std::int32_t{TextToInteger16(text)};
    case kInteger32:
      return TextToInteger32(text);
    case kText:
      break;
  }
  if (text.empty()) throw Failure("an absent text");
  return FirstCharacters(text, static_cast<std::size_t>(row.most));
}

}  // namespace

std::span<const SettingRow> SettingRows() {
  return kRows;
}

const SettingRow* FindSettingRow(std::string_view section, std::string_view key) {
  const auto* found =
      std::ranges::find_if(kRows, [&](const SettingRow& row) { return row.section == section && row.key == key; });
  return found == std::end(kRows) ? nullptr : found;
}

std::optional<SettingValue> ReadSetting(const SettingRow& row, std::string_view text) {
  std::optional<SettingValue> value;
  ResumeNext([&] { value = Converted(row, text); });
  return value;
}

std::string WriteSetting(const SettingRow& row, const SettingValue& value) {
  if (row.code == kText)
    return FirstCharacters(Trim(std::get<std::string>(value)), static_cast<std::size_t>(row.most));
  if (row.code == kWord) return std::get<bool>(value) ? "True" : "False";
  if (row.code == kFlag) return std::to_string(BoolToFlag(std::get<bool>(value)));
  return std::to_string(std::get<std::int32_t>(value));
}

}  // namespace qublet
