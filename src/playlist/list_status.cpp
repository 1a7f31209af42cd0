#include "playlist/list_status.h"

#include <charconv>

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

  bool AllSelected() const { return selected.count == all.count; }
};

void Add(Sums& sums, std::int64_t length, std::int64_t size) {
  ++sums.count;
  sums.length += length;
  sums.size += size;
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

void Enable(ListStatus& status, std::initializer_list<const char*> names, bool enabled) {
  for (const char* name : names) status.commands.push_back({name, enabled});
}

// Commands that any selection at all can be given to.
void EnableForSelection(ListStatus& status, bool any) {
  Enable(status,
         {"MEditRemove", "MEditPlaySel", "MEditPlayFol", "MEditPlayLoc", "MEditSelAlt", "MEditSelNone", "MEditSelLoc",
          "MEditSeMark", "MEditSeUnMark", "MEditSelFol", "MToolsBookmarkAdd", "MEditSelShuffle"},
         any);
}

void ShowNone(const Survey& survey, const std::string& separator, ListStatus& status) {
  status.panels = {"Total: " + std::to_string(survey.all.count), FormatTime(survey.all.length),
                   FormatSize(survey.all.size, separator)};
  Enable(status, {"MEditSelTop", "MEditSelBottom", "MEditId3", "MEditFileInfo", "MEditMoveUp", "MEditMoveDown"},
         false);
  Enable(status, {"MEditSelAll"}, true);
}

void ShowSeveral(const Survey& survey, const std::string& separator, ListStatus& status) {
  status.panels = {std::to_string(survey.selected.count) + " Items", FormatTime(survey.selected.length),
                   FormatSize(survey.selected.size, separator)};
  Enable(status, {"MEditSelAll", "MEditSelTop", "MEditSelBottom"}, !survey.AllSelected());
  Enable(status, {"MEditId3"}, true);
  Enable(status, {"MEditFileInfo"}, false);
}

void ShowOne(const Survey& survey, const RowStore& rows, const FileSystem& files, const std::string& separator,
             ListStatus& status) {
  const int index = survey.last_of_selected;
  const bool present = FileExists(files, rows.At(index).FullPath());
  status.panels[0] = "Track: " + std::to_string(index) + "/" + std::to_string(survey.all.count);
  status.panels[1] = "-";
  status.panels[2] = "-";
  if (present) {
    status.panels[1] =
        FormatTime(survey.selected.length) + "[" + FormatTime(survey.up_to_selected - survey.selected.length) + "]";
    status.panels[2] = FormatSize(survey.selected.size, separator);
  }
  Enable(status, {"MEditSelAll"}, true);
  Enable(status, {"MEditSelTop"}, !survey.first_selected);
  Enable(status, {"MEditSelBottom"}, !survey.last_selected);
  Enable(status, {"MEditId3", "MEditFileInfo", "MEditPlaySel"}, present);
  Enable(status, {"Mreloc", "Mrelocs"}, !present);
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
  const bool any = survey.selected.count > 0;
  Enable(status, {"Mreloc", "Mrelocs"}, false);
  EnableForSelection(status, any);
  if (any) {
    Enable(status, {"MEditMoveUp"}, !survey.first_selected);
    Enable(status, {"MEditMoveDown"}, !survey.last_selected);
  }
  if (!any) {
    ShowNone(survey, thousands_separator, status);
  } else if (survey.selected.count == 1) {
    ShowOne(survey, rows, files, thousands_separator, status);
  } else {
    ShowSeveral(survey, thousands_separator, status);
  }
  status.warnings = UpdateLimitWarnings(survey.all.count, survey.all.size, survey.all.length, settings);
  return status;
}

}  // namespace qublet
