#include "playlist/list_status.h"

#include <charconv>

#include "platform/server.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

constexpr std::int32_t kBytesPerMegabyte = 1048576;

std::int64_t WholePart(const std::string& cell) {
  std::int64_t value = 0;
  std::from_chars(cell.data(), cell.data() + cell.size(), value);
  return value;
}

struct Sums {
  int count = 0;
  std::int64_t length = 0;
  std::int64_t size = 0;
};

struct Survey {
  Sums all;
  Sums selected;
  int last_of_selected = 0;
  std::int64_t up_to_selected = 0;  // lengths of all rows up to that one
  bool first_selected = false;
  bool last_selected = false;
};

void Add(Sums& sums, std::int64_t length, std::int64_t size) {
  ++sums.count;
  sums.length = SaturatingAdd(sums.length, length);
  sums.size = SaturatingAdd(sums.size, size);
}

Survey Look(const RowStore& rows) {
  Survey survey;
  const int count = rows.Count();
  for (int i = 1; i <= count; ++i) {
    const Row& row = rows.At(i);
    const std::int64_t length = WholePart(row.cells[kHiddenLen]);
    const std::int64_t size = WholePart(row.cells[kHiddenSize]);
    Add(survey.all, length, size);
    if (!row.selected) continue;
    Add(survey.selected, length, size);
    survey.last_of_selected = i;
    survey.up_to_selected = survey.all.length;
  }
  survey.first_selected = count > 0 && rows.At(1).selected;
  survey.last_selected = count > 0 && rows.At(count).selected;
  return survey;
}

std::array<std::string, 3> NonePanels(const Survey& survey, const std::string& separator) {
  return {"Total: " + std::to_string(survey.all.count), FormatTime(survey.all.length),
          FormatSize(survey.all.size, separator)};
}

std::array<std::string, 3> SeveralPanels(const Survey& survey, const std::string& separator) {
  return {std::to_string(survey.selected.count) + " Items", FormatTime(survey.selected.length),
          FormatSize(survey.selected.size, separator)};
}

std::array<std::string, 3> OnePanels(const Survey& survey, bool there, const std::string& separator) {
  const std::string track =
      "Track: " + std::to_string(survey.last_of_selected) + "/" + std::to_string(survey.all.count);
  if (!there) return {track, "-", "-"};
  return {track,
          FormatTime(survey.selected.length) + "[" + FormatTime(survey.up_to_selected - survey.selected.length) + "]",
          FormatSize(survey.selected.size, separator)};
}

// What is missing on a server may just not have been looked for there, and the row is selected by being taken in.
bool IsFileThere(const FileSystem& files, const Row& row) {
  const std::string path = row.RealPath();
  return !(row.ghosted && !ServerIn(path).empty()) && FileExists(files, path);
}

}  // namespace

std::array<std::optional<bool>, 3> UpdateLimitWarnings(std::int64_t count, std::int64_t size, std::int64_t length,
                                                       const AppSettings& settings) {
  std::array<std::optional<bool>, 3> warnings;
  warnings[0] = settings.PLTCC && count >= settings.PLTCP;
  warnings[1] = settings.PLTTC && length >= settings.PLTTP;
  ResumeNext([&] { warnings[2] = settings.PLTSC && size >= CheckedMultiply32(settings.PLTSP, kBytesPerMegabyte); });
  return warnings;
}

ListStatus WorkOutStatus(const RowStore& rows, const FileSystem& files, const AppSettings& settings,
                         const std::string& thousands_separator) {
  const Survey survey = Look(rows);
  ListStatus status;
  status.facts = {survey.all.count, survey.selected.count, survey.first_selected, survey.last_selected, false};
  if (survey.selected.count == 0) {
    status.panels = NonePanels(survey, thousands_separator);
  } else if (survey.selected.count == 1) {
    status.facts.file_there = IsFileThere(files, rows.At(survey.last_of_selected));
    status.panels = OnePanels(survey, status.facts.file_there, thousands_separator);
  } else {
    status.panels = SeveralPanels(survey, thousands_separator);
  }
  status.warnings = UpdateLimitWarnings(survey.all.count, survey.all.size, survey.all.length, settings);
  return status;
}

}  // namespace qublet
