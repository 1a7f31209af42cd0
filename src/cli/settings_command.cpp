#include "cli/settings_command.h"

#include <algorithm>
#include <ostream>

#include "cli/json_text.h"
#include "platform/failure.h"
#include "settings/application.h"
#include "settings/setting_rows.h"

namespace qublet {
namespace {

// So that a setting is one line of four parts whatever it holds.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '\\':
        escaped += "\\\\";
        break;
      case '\t':
        escaped += "\\t";
        break;
      case '\n':
        escaped += "\\n";
        break;
      case '\r':
        escaped += "\\r";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// Of a value that can't be read, the caption that the default has.
std::string CaptionOf(const Setting& setting) {
  const SettingRow* const row = FindSettingRow(setting.section, setting.key);
  if (row == nullptr) return "";
  const std::optional<SettingValue> value = ReadSetting(*row, setting.value);
  return SettingCaption(*row, value ? *value : ReadSetting(*row, row->default_text).value_or(SettingValue()));
}

int List(const SettingsStore& store, bool json, std::ostream& out) {
  for (const Setting& setting : store.AllSettings(AppKey())) {
    const auto& [section, key, value] = setting;
    if (json) {
      out << "{\"section\": " << JsonText(section) << ", \"key\": " << JsonText(key)
          << ", \"value\": " << JsonText(value) << ", \"caption\": " << JsonText(CaptionOf(setting)) << "}\n";
    } else {
      out << Escaped(section) << '\t' << Escaped(key) << '\t' << Escaped(value) << '\t' << CaptionOf(setting) << '\n';
    }
  }
  return kDone;
}

int Get(const SettingsStore& store, const std::string& section, const std::string& key, std::ostream& out) {
  const std::vector<Setting> all = store.AllSettings(AppKey());
  const auto found = std::ranges::find_if(
      all, [&](const Setting& setting) { return setting.section == section && setting.key == key; });
  if (found == all.end()) return kCouldNot;
  out << found->value << '\n';
  return kDone;
}

// What a value of this row may be, in a few words.
std::string Wanted(const SettingRow& row) {
  switch (row.code) {
    case SettingCode::kWord:
      return "True or False";
    case SettingCode::kFlag:
      return "1 or 0";
    case SettingCode::kText:
      return "a text of up to " + std::to_string(row.limits.most) + " characters";
    default:
      return "a number from " + std::to_string(row.limits.least) + " to " + std::to_string(row.limits.most);
  }
}

// Whether the program would read the value back as what it says.
bool Fits(const SettingRow& row, const std::string& text) {
  const std::optional<SettingValue> value = ReadSetting(row, text);
  if (row.code == SettingCode::kText) return text.empty() || (value && std::get<std::string>(*value) == text);
  if (!value) return false;
  const auto* number = std::get_if<std::int32_t>(&*value);
  return number == nullptr || (row.limits.least <= *number && *number <= row.limits.most);
}

int Set(SettingsStore& store, const Setting& setting, std::ostream& err) {
  const SettingRow* row = FindSettingRow(setting.section, setting.key);
  if (row != nullptr && !Fits(*row, setting.value)) {
    return Complain(err, setting.section + " " + setting.key + " takes " + Wanted(*row), kCouldNot);
  }
  try {
    store.SaveSettings(AppKey(), {setting});
    return kDone;
  } catch (const Failure& failure) {
    return Complain(err, failure.what(), kCouldNot);
  }
}

}  // namespace

int SettingsCommand(CommandContext& context) {
  const Arguments& arguments = context.arguments;
  SettingsStore& store = context.store;
  std::ostream& out = context.out;
  std::ostream& err = context.err;
  if (arguments == Arguments{"list", "--json"} || arguments == Arguments{"--json"}) return List(store, true, out);
  const std::string verb = arguments.empty() ? "list" : arguments[0];
  if (verb == "list" && arguments.size() <= 1) return List(store, false, out);
  if (verb == "get" && arguments.size() == 3) return Get(store, arguments[1], arguments[2], out);
  if (verb == "set" && arguments.size() == 4) return Set(store, {arguments[1], arguments[2], arguments[3]}, err);
  return Complain(err, "settings: list [--json], get SECTION KEY or set SECTION KEY VALUE is wanted", kWrongUse);
}

}  // namespace qublet
