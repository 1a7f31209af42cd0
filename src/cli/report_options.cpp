#include "cli/report_options.h"

#include <algorithm>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

using Settings = ReportSettings;

// Line ends become those that the file has.
std::string TextOf(const std::string& text, std::size_t width) {
  return FirstCharacters(ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\n", "\r\n"), width);
}

template <bool Settings::*Field>
void SetFlag(Settings& settings, const std::string& name, const std::string& value) {
  settings.*Field = FlagOf(value, name);
}

template <std::int16_t Settings::*Field>
void SetNumber(Settings& settings, const std::string& name, const std::string& value) {
  settings.*Field = NumberOf<std::int16_t>(value, name);
}

template <std::string Settings::*Field, std::size_t Width>
void SetText(Settings& settings, const std::string& /*name*/, const std::string& value) {
  settings.*Field = TextOf(value, Width);
}

struct ReportField {
  const char* name;
  void (*set)(Settings& settings, const std::string& name, const std::string& value);  // throws Failure
};

constexpr ReportField kFields[] = {
    {"RepType", SetNumber<&Settings::RepType>},
    {"Title", SetText<&Settings::Title, kTitleWidth>},
    {"Description", SetText<&Settings::Description, kDescriptionWidth>},
    {"Summary", SetFlag<&Settings::Summary>},
    {"ColumnHeaders", SetFlag<&Settings::ColumnHeaders>},
    {"SaveRel", SetFlag<&Settings::SaveRel>},
    {"TableWidth", SetText<&Settings::TableWidth, kTableWidthWidth>},
    {"TableSpacing", SetText<&Settings::TableSpacing, kTableNumberWidth>},
    {"TablePadding", SetText<&Settings::TablePadding, kTableNumberWidth>},
    {"TableBorder", SetText<&Settings::TableBorder, kTableNumberWidth>},
    {"Delimiter", SetText<&Settings::Delimiter, kDelimiterWidth>},
    {"SpaceAligned", SetFlag<&Settings::SpaceAligned>},
    {"TabDelimited", SetFlag<&Settings::TabDelimited>},
    {"CommaDelimited", SetFlag<&Settings::CommaDelimited>},
    {"CustomDelimited", SetFlag<&Settings::CustomDelimited>},
    {"FontName", SetText<&Settings::FontName, kFontNameWidth>},
    {"FontSize", SetNumber<&Settings::FontSize>},
    {"ColorTable", SetFlag<&Settings::ColorTable>},
};

void SetField(Settings& settings, const std::string& name, const std::string& value) {
  const auto* const field = std::ranges::find_if(kFields, [&](const ReportField& row) { return name == row.name; });
  if (field == std::end(kFields)) throw Failure("no such field: " + name);
  field->set(settings, name, value);
}

std::pair<std::string, std::string> SettingOf(const std::string& text) {
  std::pair<std::string, std::string> setting = FieldAndValue(text);
  Settings nobody;
  SetField(nobody, setting.first, setting.second);
  return setting;
}

std::vector<std::int16_t> ColumnsOf(const std::string& text) {
  std::vector<std::int16_t> columns;
  for (const std::string& piece : Split(text, ',')) {
    const std::int16_t number = NumberOf<std::int16_t>(piece, "--columns");
    if (FindReportColumn(number) == nullptr) throw Failure("there is no column " + piece);
    if (std::ranges::find(columns, number) != columns.end()) throw Failure("column " + piece + " is given twice");
    columns.push_back(number);
  }
  return columns;
}

}  // namespace

ReportOptions TakeReportOptions(Arguments& arguments) {
  ReportOptions options;
  options.settings_file = TakeValue(arguments, "--settings").value_or("");
  while (const auto setting = TakeValues(arguments, "--set", 1))
    options.settings.push_back(SettingOf(setting->front()));
  if (const auto columns = TakeValue(arguments, "--columns")) options.columns = ColumnsOf(*columns);
  options.saved_settings = TakeValue(arguments, "--save-settings").value_or("");
  options.replace = TakeOption(arguments, "--replace");
  return options;
}

void ApplyOptions(const ReportOptions& options, ReportSettings& settings) {
  for (const auto& [name, value] : options.settings) SetField(settings, name, value);
  if (options.columns.empty()) return;
  std::vector<std::int16_t> order = options.columns;
  for (std::int16_t number = 1; FindReportColumn(number) != nullptr; ++number) {
    if (std::ranges::find(options.columns, number) == options.columns.end()) order.push_back(number);
  }
  std::ranges::copy(order, settings.ColumnOrder.begin());
  settings.ColumnChecked.fill(false);
  std::fill_n(settings.ColumnChecked.begin(), options.columns.size(), true);
}

}  // namespace qublet
