#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "settings/app_settings.h"

namespace qublet {

// The table of all keys of the settings record: the only place that knows their texts, encodings and defaults.

// How a value is written, and what reading takes.
enum class SettingCode {
  kWord,       // "True" or "False"; takes these in any letter case, and numbers, of which only 0 is False
  kFlag,       // "1" or "0"; takes numbers, of which only 1 is True
  kInteger16,  // decimal; takes numbers, rounded half to even
  kInteger32,  // the same
  kText,       // trimmed of blanks; takes all but ""
};

using SettingValue = std::variant<bool, std::int32_t, std::string>;

// The field of a row in any record. Set wants the alternative that Get gives, within the width of the field.
struct SettingField {
  SettingValue (*Get)(const AppSettings& settings) = nullptr;
  void (*Set)(AppSettings& settings, const SettingValue& value) = nullptr;
};

// Bounds that it makes sense to offer. A stored value beyond them is taken as it stands. For a text, `most` is the
// length in characters that it is cut to.
struct SettingLimits {
  std::int32_t least = std::numeric_limits<std::int16_t>::min();
  std::int32_t most = std::numeric_limits<std::int16_t>::max();
};

// The pages of the preferences that have controls.
enum class SettingPage { kNone, kGeneral, kPlaylistView, kElements, kInterface, kStartup, kPrompting };

struct SettingControl {
  std::string_view name;     // the widget's
  std::string_view caption;  // with "&" in front of the letter for the keyboard
};

// Where the user sees and changes a setting. One that is chosen from two options has a control for each: the first
// stands for True or the lower limit.
struct SettingPlace {
  SettingPage page = SettingPage::kNone;
  SettingControl control = {};
  SettingControl other = {};
};

struct SettingRow {
  std::string_view section;
  std::string_view key;
  SettingCode code;
  SettingField field;
  std::string_view default_text;  // as stored; "" for none
  SettingLimits limits = {};
  SettingPlace place = {};
};

// In the order in which the keys are read.
std::span<const SettingRow> SettingRows();
// Null for a key that isn't in the record.
const SettingRow* FindSettingRow(std::string_view section, std::string_view key);

// Nothing when the text can't be read as a value of this row.
std::optional<SettingValue> ReadSetting(const SettingRow& row, std::string_view text);
std::string WriteSetting(const SettingRow& row, const SettingValue& value);

// What the user reads beside the setting, without "&"; of two options the one that `value` chooses. "" for none.
std::string SettingCaption(const SettingRow& row, const SettingValue& value);

}  // namespace qublet
