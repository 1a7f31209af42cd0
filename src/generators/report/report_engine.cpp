#include "generators/report/report_engine.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "generators/report/report_file.h"
#include "generators/report/report_rows.h"
#include "platform/code_page.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::string_view kBreak = "\r\n";
constexpr std::string_view kCellEnd = "</font></td>\r\n";
constexpr std::size_t kCellRoom = 64;  // letters that most cells don't reach, but for the font

std::string Filled(std::string text, std::size_t width) {
  const std::size_t count = CharacterCount(text);
  return count < width ? std::move(text) + std::string(width - count, ' ') : std::move(text);
}

// A cell is known by the column's number; the link has none.
struct SelectedColumn {
  const ReportColumn* column;
  std::size_t cell;
  bool IsLink() const { return column->group == ColumnGroup::kLink; }
};

std::vector<SelectedColumn> SelectedColumns(const ReportSettings& settings) {
  std::vector<SelectedColumn> selected;
  for (std::size_t place = 0; place < kReportColumns; ++place) {
    const int number = settings.ColumnOrder[place];
    const ReportColumn* const column = FindReportColumn(number);
    if (settings.ColumnChecked[place] && column != nullptr)
      selected.push_back({column, static_cast<std::size_t>(number - 1)});
  }
  return selected;
}

ReportNeeds NeedsOf(const std::vector<SelectedColumn>& columns) {
  const auto any = [&](ColumnGroup group) {
    return std::ranges::any_of(columns,
                               [&](const SelectedColumn& selected) { return selected.column->group == group; });
  };
  return {any(ColumnGroup::kMedia), any(ColumnGroup::kId3v1), any(ColumnGroup::kId3v2), any(ColumnGroup::kLink)};
}

// One encoding for the whole file, so it is chosen before the first tag is read.
ReportFile::Encoding EncodingFor(const ReportSettings& settings, const Collection& files) {
  const auto fits = [](const std::string& text) { return IsAscii(text) || ToCodePage(text).has_value(); };
  const bool all = fits(settings.Title) && fits(settings.Description) && std::ranges::all_of(files, fits);
  return all ? ReportFile::Encoding::kCodePage : ReportFile::Encoding::kUtf8;
}

void DropPlaceholders(ReportSettings& settings) {
  settings.Title = Trim(settings.Title);
  if (settings.Title == kTitlePlaceholder) settings.Title.clear();
  settings.Description = Trim(settings.Description);
  if (settings.Description == kDescriptionPlaceholder) settings.Description.clear();
}

std::string DelimiterOf(const ReportSettings& settings) {
  std::string delimiter;
  if (settings.CommaDelimited) delimiter = ",";
  if (settings.TabDelimited) delimiter = "\t";
  if (settings.CustomDelimited) delimiter = Trim(settings.Delimiter);
  return delimiter;
}

// The lines of one report. What fails leaves its text out, and the next one follows.
class ReportLines {
 public:
  explicit ReportLines(const ReportSettings& settings)
      : settings_(settings),
        columns_(SelectedColumns(settings)),
        html_(settings.RepType == kHtmlReport),
        text_(settings.RepType == kTextReport),
        aligned_(settings.SpaceAligned),
        delimiter_(DelimiterOf(settings)),
        font_(Trim(settings.FontName)),
        cell_font_(Font(font_)) {
    for (const SelectedColumn& selected : columns_) total_width_ += selected.column->width;
  }

  const std::vector<SelectedColumn>& Columns() const { return columns_; }

  // What the next file adds to the sums; gives what stands there for its length.
  std::string TakeSums(const ReportFacts& facts);

  // Each of these ends a line; the headers stand in front of the first row.
  std::string Head() const;
  std::string Headers() const;
  // Of the file at this place, from 0, with this length; on any thread.
  std::string Row(const ReportItem& item, std::size_t place, const std::string& time) const;
  std::string Foot(std::size_t items, const LocalTime& now, const std::string& thousands_separator) const;

 private:
  // Throws Failure for a size beyond 16 bits.
  std::string Font(std::string_view name, int larger = 0) const {
    return "<font face='" + std::string(name) + "' size='" +
           std::to_string(ToInteger16(settings_.FontSize + larger)) + "'>";
  }
  std::string Rule() const { return RepeatText(aligned_ ? total_width_ : 0, "-"); }
  std::string TextCell(const std::string& value, const ReportColumn& column) const;
  void AddCell(const SelectedColumn& selected, const std::string& value, const std::string& colour,
               std::string& line) const;
  std::string Summary(std::size_t items, const LocalTime& now, const std::string& thousands_separator) const;

  const ReportSettings& settings_;
  const std::vector<SelectedColumn> columns_;
  const bool html_;
  const bool text_;
  const bool aligned_;
  const std::string delimiter_;
  const std::string font_;
  const std::string cell_font_;  // the start of what stands in it
  int total_width_ = 0;

  std::int32_t seconds_ = 0;  // of the last file that had a length
  std::int32_t total_seconds_ = 0;
  std::int32_t total_bytes_ = 0;
  std::string time_prefix_;
  std::string size_prefix_;
};

std::string ReportLines::Head() const {
  const std::string& title = settings_.Title;
  const std::string& description = settings_.Description;
  std::string line;
  if (html_) {
    line = "<head><html><title>" + Filled(title, kTitleWidth) + "</title></head><body>";
    const auto paragraph = [&](const std::string& text, int larger, const char* before, const char* behind) {
      if (text.empty()) return;
      ResumeNext([&] {
        line += "<p align=center>" + Font(font_, larger) + before + ReplaceAll(text, kBreak, "<br>") + behind +
                "</font></p>" + std::string(kBreak);
      });
    };
    paragraph(title, 1, "<b>", "</b>");
    paragraph(description, 0, "", "");
  }
  if (text_) {
    if (!title.empty()) line.append(title).append(kBreak);
    if (!description.empty()) line.append(description).append(kBreak);
    line += Rule();
  }
  return line;
}

std::string ReportLines::Headers() const {
  std::string line;
  if (html_) {
    line = "<center><table border=" + Trim(settings_.TableBorder);
    if (settings_.TableWidth != "Auto") line += " width=" + Trim(settings_.TableWidth);
    line += " cellspacing=" + Trim(settings_.TableSpacing) + " cellpadding=" + Trim(settings_.TablePadding) + ">";
  }
  if (settings_.ColumnHeaders) {
    for (const auto& [column, cell] : columns_) {
      const std::string key(column->key);
      if (html_) line.append("<td>" + cell_font_ + "<b>" + key + "</b></font></td>").append(kBreak);
      if (text_) ResumeNext([&, &column = *column] { line += TextCell(key, column); });
    }
    if (text_) line.append(kBreak).append(Rule());
  }
  return line.append(kBreak);
}

std::string ReportLines::TextCell(const std::string& value, const ReportColumn& column) const {
  std::int16_t width = column.width;
  return aligned_ ? PadColumn(value, width) : value + delimiter_;
}

std::string ReportLines::TakeSums(const ReportFacts& facts) {
  if (!facts.found) time_prefix_ = size_prefix_ = ">";
  if (facts.seconds) seconds_ = *facts.seconds;
  for (const auto& [column, cell] : columns_) {
    if (cell == kTimeCell) ResumeNext([&] { total_seconds_ = ToInteger32(std::int64_t{total_seconds_} + seconds_); });
    if (seconds_ == 0) time_prefix_ = ">";
    if (cell == kSizeCell && facts.size)
      ResumeNext([&] { total_bytes_ = ToInteger32(std::int64_t{total_bytes_} + *facts.size); });
  }
  return facts.shows_time ? FormatTime(seconds_) : "";
}

std::string ReportLines::Row(const ReportItem& item, std::size_t place, const std::string& time) const {
  const std::string colour =
      settings_.ColorTable ? std::string(" bgcolor=#") + (place % 2 == 0 ? "DDDDDD" : "EEEEEE") : std::string();
  std::string line;
  line.reserve(columns_.size() * (kCellRoom + cell_font_.size()));
  if (html_) line.append("<tr>").append(kBreak);
  for (const SelectedColumn& selected : columns_) {
    const std::string& value = selected.IsLink()            ? item.link
                               : selected.cell == kTimeCell ? time
                                                            : item.cells[selected.cell];
    ResumeNext([&] { AddCell(selected, value, colour, line); });
  }
  if (html_) line.append("</tr>").append(kBreak);
  return line;
}

void ReportLines::AddCell(const SelectedColumn& selected, const std::string& value, const std::string& colour,
                          std::string& line) const {
  if (html_ && selected.IsLink()) {
    line += "<td" + colour + ">" + Font("Webdings", 2) + "<a href=" + value + ">X</a></font></td>\r\n";
  } else if (html_) {
    line.append("<td").append(colour).append(">").append(cell_font_);
    line.append(value.empty() ? "-" : value).append(kCellEnd);
  }
  if (text_ && !selected.IsLink()) line += TextCell(value, *selected.column);
}

std::string ReportLines::Summary(std::size_t items, const LocalTime& now,
                                 const std::string& thousands_separator) const {
  std::string summary = std::to_string(items) + " Items";
  if (total_seconds_ != 0) summary += ", Total Playing Time " + time_prefix_ + FormatTime(total_seconds_);
  if (total_bytes_ != 0) summary += ", [" + size_prefix_ + FormatSize(total_bytes_, thousands_separator) + "]";
  return summary + " page created " + TimeAndDate(now);
}

std::string ReportLines::Foot(std::size_t items, const LocalTime& now, const std::string& thousands_separator) const {
  std::string line;
  if (settings_.Summary) {
    const std::string summary = Summary(items, now, thousands_separator);
    if (html_) {
      line = "<tr><td colspan=" + std::to_string(columns_.size()) + ">" + cell_font_ + summary + "</font></td></tr>" +
             std::string(kBreak);
    }
    if (text_) line = Rule() + std::string(kBreak) + summary + std::string(kBreak) + Rule();
  }
  if (html_) line += "</table></center></body></html>";
  return line;
}

const FileSystem& TargetFiles(const ReportServices& services) {
  return services.own_file ? services.files.OwnFiles() : services.files;
}

bool IsOwnFile(const FileSystem& files, const std::string& path) {
  return Guarded([&] { files.OwnFiles().OpenForReading(path); });
}

}  // namespace

ReportResult GenerateReport(const ReportServices& services, const std::string& path, const Collection& files,
                            ReportSettings& settings, const ReportProgress& progress) {
  ReportResult result;
  result.written = Attempt([&] {
    const ReportBase base{settings.SaveRel, settings.SaveRel ? FindCommonFolder(files) : ""};
    DropPlaceholders(settings);
    ReportFile file(TargetFiles(services), path, EncodingFor(settings, files));
    ReportLines lines(settings);
    file.WriteLine(lines.Head());
    file.Write(file.Bytes(lines.Headers()));

    const ReportNeeds needs = NeedsOf(lines.Columns());
    const ExistingFiles existing(services.files);
    const ReportRows::Make make = [&](std::size_t place) {
      ReportItem item =
          ReadReportItem(services.files, files[place], needs, base, services.thousands_separator, existing);
      ReportRow row{item.facts, "", std::nullopt};
      if (item.facts.shows_time && !item.facts.seconds)
        row.waits = std::move(item);
      else
        row.bytes = file.Bytes(lines.Row(item, place, item.facts.shows_time ? FormatTime(*item.facts.seconds) : ""));
      return row;
    };
    const int count = static_cast<int>(files.size());
    ReportRows rows(files.size(), make);
    for (std::size_t place = 0; place < files.size(); ++place) {
      progress(static_cast<int>(place) + 1, count);
      ReportRow row = rows.Next();
      const std::string time = lines.TakeSums(row.facts);
      if (row.waits) row.bytes = file.Bytes(lines.Row(*row.waits, place, time));
      file.Write(row.bytes.append(kBreak));
    }
    file.WriteLine(lines.Foot(files.size(), services.clock.Now(), services.thousands_separator));
    progress(0, count);
    file.Close().OrThrow();
  });
  result.exists = FileExists(services.files, path) && (!services.own_file || IsOwnFile(services.files, path));
  return result;
}

std::string TimeAndDate(const LocalTime& now) {
  char text[64];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d [%02d-%02d-%04d]", now.hour, now.minute, now.second, now.month,
                now.day, now.year);
  return text;
}

std::string PadColumn(std::string value, std::int16_t& width) {
  --width;
  if (width < 0) throw Failure("no room for a column");
  const auto room = static_cast<std::size_t>(width);
  return Filled(FirstCharacters(value, room), room) + " ";
}

std::string RepeatText(int count, std::string_view text) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

}  // namespace qublet
