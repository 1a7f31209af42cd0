#include "generators/report/report_settings.h"

#include "settings/record_file.h"

namespace qublet {
namespace {

// The one list of the fields, for both ways.
template <typename Record, typename Settings>
void GoThrough(Record& record, Settings& settings) {
  record.Short(settings.RepType);
  record.Text(settings.Title, kTitleWidth);
  record.Text(settings.Description, kDescriptionWidth);
  record.Flag(settings.Summary);
  record.Flag(settings.ColumnHeaders);
  record.Flag(settings.SaveRel);
  record.Text(settings.TableWidth, kTableWidthWidth);
  record.Text(settings.TableSpacing, kTableNumberWidth);
  record.Text(settings.TablePadding, kTableNumberWidth);
  record.Text(settings.TableBorder, kTableNumberWidth);
  for (auto& number : settings.ColumnOrder) record.Short(number);
  for (auto& checked : settings.ColumnChecked) record.Flag(checked);
  record.Text(settings.Delimiter, kDelimiterWidth);
  record.Flag(settings.SpaceAligned);
  record.Flag(settings.TabDelimited);
  record.Flag(settings.CommaDelimited);
  record.Flag(settings.CustomDelimited);
  record.Text(settings.FontName, kFontNameWidth);
  record.Short(settings.FontSize);
  record.Flag(settings.ColorTable);
}

}  // namespace

void LoadDefaults(ReportSettings& settings) {
  settings = {};
  settings.Title = kTitlePlaceholder;
  settings.Description = kDescriptionPlaceholder;
  settings.Summary = settings.ColumnHeaders = settings.SaveRel = true;
  settings.TableWidth = "Auto";
  settings.TableSpacing = "1";
  settings.TablePadding = "3";
  settings.TableBorder = "0";
  for (std::size_t place = 0; place < kReportColumns; ++place) {
    settings.ColumnOrder[place] = static_cast<std::int16_t>(place + 1);
    settings.ColumnChecked[place] = place != 1;
  }
  settings.Delimiter = ":";
  settings.SpaceAligned = true;
  settings.FontName = "Verdana";
  settings.ColorTable = true;
}

std::string ReportRecord(const ReportSettings& settings) {
  RecordWriter writer;
  GoThrough(writer, settings);
  return writer.Record();
}

ReportSettings ReportSettingsOf(std::string_view record) {
  ReportSettings settings;
  RecordReader reader(record);
  GoThrough(reader, settings);
  return settings;
}

Outcome LoadReportSettings(const FileSystem& files, const std::string& path, ReportSettings& settings) {
  return Attempt([&] { settings = ReportSettingsOf(ReadRecordFile(files, path, kReportRecordSize)); });
}

Outcome SaveReportSettings(const FileSystem& files, const std::string& path, const ReportSettings& settings) {
  return WriteRecordFile(files, path, ReportRecord(settings));
}

}  // namespace qublet
