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

using enum SettingPage;

constexpr SettingLimits kAny;

constexpr SettingLimits Range(std::int32_t least, std::int32_t most) {
  return {least, most};
}

constexpr SettingPlace Control(SettingPage page, std::string_view name, std::string_view caption) {
  return {page, {name, caption}, {}};
}

constexpr SettingPlace Options(SettingPage page, std::string_view first, std::string_view first_caption,
                               std::string_view other, std::string_view other_caption) {
  return {page, {first, first_caption}, {other, other_caption}};
}

constexpr SettingPlace kTableFont = Control(kPlaylistView, "FontChange", "Table Font:");
constexpr std::string_view kMegabytes = "Mbytes (Sum of all items)";
constexpr std::string_view kSeconds = "Seconds total time";
constexpr std::string_view kItems = "Items in total";

constexpr SettingRow kRows[] = {
    {"ToolB", "Flat", kWord, Field<&S::Flat>, "True", kAny,
     Options(kElements, "ToolbarFlat", "Flat Buttons", "ToolbarRaised", "Raised Buttons")},
    {"ToolB", "3D", kWord, Field<&S::ThreeD>, "True", kAny,
     Options(kElements, "Toolbar3D", "3D Look", "ToolbarStandard", "Standard Look")},
    {"ToolB", "Align", kInteger16, Field<&S::Align>, "2", Range(1, 2),
     Options(kElements, "ToolbarAlignTop", "Align Top", "ToolbarAlignBottom", "Align Bottom")},
    {"Menu", "Visible", kWord, Field<&S::Visible>, "True", kAny, Control(kElements, "chkShowMenu", "Show Main Menu")},
    {"VE", "SA", kFlag, Field<&S::SA>, "1", kAny, Control(kElements, "chkShowStatusBar", "Show Status bar")},
    {"VE", "TA", kFlag, Field<&S::TA>, "1", kAny, Control(kElements, "chkShowToolbar", "Show Toolbar")},
    {"TableB", "BC", kInteger32, Field<&S::BC>, "21306", Range(kLeast32, kMost32),
     Control(kPlaylistView, "BackColorChange", "Background Color:")},
    {"TableB", "FC", kInteger32, Field<&S::FC>, "57284", Range(kLeast32, kMost32),
     Control(kPlaylistView, "ForeColorChange", "Text Colour:")},
    {"TableFont", "Name", kText, Field<&S::Name>, "Arial Narrow", Range(0, 100), kTableFont},
    {"TableFont", "Size", kInteger16, Field<&S::Size>, "8", Range(1, 200), kTableFont},
    {"TableFont", "Italic", kWord, Field<&S::Italic>, "False", kAny, kTableFont},
    {"TableFont", "Bold", kWord, Field<&S::Bold>, "False", kAny, kTableFont},
    {"TableFont", "Strikethrough", kWord, Field<&S::Strikethrough>, "False", kAny, kTableFont},
    {"TableFont", "Underline", kWord, Field<&S::Underline>, "False", kAny, kTableFont},
    {"TableB", "TX1", kWord, Field<&S::TX, 0>, "True", kAny, Control(kElements, "chkColumnVis0", "Filename")},
    {"TableB", "TV1", kInteger16, Field<&S::TV, 0>, "", Range(0, kMost16)},
    {"TableB", "TX2", kWord, Field<&S::TX, 1>, "True", kAny, Control(kElements, "chkColumnVis1", "Length")},
    {"TableB", "TV2", kInteger16, Field<&S::TV, 1>, "", Range(0, kMost16)},
    {"TableB", "TX3", kWord, Field<&S::TX, 2>, "True", kAny, Control(kElements, "chkColumnVis2", "Size")},
    {"TableB", "TV3", kInteger16, Field<&S::TV, 2>, "", Range(0, kMost16)},
    {"TableB", "TX4", kWord, Field<&S::TX, 3>, "True", kAny, Control(kElements, "chkColumnVis3", "Folder")},
    {"TableB", "TV4", kInteger16, Field<&S::TV, 3>, "", Range(0, kMost16)},
    {"TableB", "TX5", kWord, Field<&S::TX, 4>, "True", kAny, Control(kElements, "chkColumnVis4", "ID")},
    {"TableB", "TV5", kInteger16, Field<&S::TV, 4>, "", Range(0, kMost16)},
    {"TableB", "TX6", kWord, Field<&S::TX, 5>, "True", kAny, Control(kElements, "chkColumnVis5", "Layer")},
    {"TableB", "TV6", kInteger16, Field<&S::TV, 5>, "", Range(0, kMost16)},
    {"TableB", "TX7", kWord, Field<&S::TX, 6>, "True", kAny, Control(kElements, "chkColumnVis6", "Bitrate")},
    {"TableB", "TV7", kInteger16, Field<&S::TV, 6>, "", Range(0, kMost16)},
    {"TableB", "TX8", kWord, Field<&S::TX, 7>, "True", kAny, Control(kElements, "chkColumnVis7", "SampleRate")},
    {"TableB", "TV8", kInteger16, Field<&S::TV, 7>, "", Range(0, kMost16)},
    {"TableB", "TX9", kWord, Field<&S::TX, 8>, "True", kAny, Control(kElements, "chkColumnVis8", "Mode")},
    {"TableB", "TV9", kInteger16, Field<&S::TV, 8>, "", Range(0, kMost16)},
    {"PS", "H", kInteger16, Field<&S::H>, "6000"},
    {"PS", "T", kInteger16, Field<&S::T>, "1900"},
    {"PS", "W", kInteger16, Field<&S::W>, "7920"},
    {"PS", "L", kInteger16, Field<&S::L>, "800"},
    {"SSE", "RESPLAYLIST", kFlag, Field<&S::RESPLAYLIST>, "1", kAny,
     Control(kStartup, "chkPlaylistRestore", "&Restore last playlist on startup")},
    {"SSE", "WINSTART", kFlag, Field<&S::WINSTART>, "0", kAny,
     Control(kStartup, "chkPlayPlaylist", "Open &Last playlist when Windows starts")},
    {"SSE", "PROMPTSORT", kFlag, Field<&S::PROMPTSORT>, "1", kAny,
     Control(kPrompting, "chkExtSortNag", "Prompt before Column Sort")},
    {"SSE", "PROMPTMISS", kFlag, Field<&S::PROMPTMISS>, "1", kAny,
     Control(kPrompting, "chkMissWarn", "Warn if Missing Playlist Items are detected")},
    {"SSE", "DBLCLKACTN", kFlag, Field<&S::DBLCLKACTN>, "1", kAny,
     Options(kInterface, "optPlaySel", "Play &Selected", "optPlayFrom", "Play &From...")},
    {"SSE", "SHUFFLEINT", kInteger16, Field<&S::SHUFFLEINT>, "1", Range(1, 10),
     Control(kInterface, "slideShuffleIntensity", "Shuffle Intensity:")},
    {"SSE", "GRID", kFlag, Field<&S::GRID>, "0", kAny, Control(kPlaylistView, "chkShowGrid", "Show Gridlines")},
    {"SSE", "HOTTRACK", kFlag, Field<&S::HOTTRACK>, "0", kAny,
     Control(kPlaylistView, "chkHotTracking", "Hot-Item tracking")},
    {"SSE", "RCount", kInteger16, Field<&S::RCount>, "10", Range(1, 20),
     Control(kGeneral, "cmbRecentCount", "Recent files count:")},
    {"SSE", "RPath", kWord, Field<&S::RPath>, "False", kAny,
     Control(kGeneral, "chkRecentFullPath", "Display &Full-path in recent files List")},
    {"SSE", "RPurge", kWord, Field<&S::RPurge>, "False", kAny,
     Control(kGeneral, "chkRecentPurge", "Purge &Non-existent recent files at startup")},
    {"SSE", "SActi", kWord, Field<&S::SActi>, "True", kAny,
     Options(kInterface, "optSaveRel", "&Relative Save", "optSaveAbs", "A&bsolute Save")},
    {"SSE", "Idir", kText, Field<&S::Idir>, "", Range(0, 255),
     Control(kInterface, "txtImportLoc", "Default import directory/folder:")},
    {"SSE", "PLTSC", kWord, Field<&S::PLTSC>, "False", kAny, Control(kPrompting, "chkPlaylistSize", kMegabytes)},
    {"SSE", "PLTSP", kInteger32, Field<&S::PLTSP>, "120", Range(0, kMost32),
     Control(kPrompting, "txtPlaylistSize", kMegabytes)},
    {"SSE", "PLTTC", kWord, Field<&S::PLTTC>, "False", kAny, Control(kPrompting, "chkPlaylistTime", kSeconds)},
    {"SSE", "PLTTP", kInteger32, Field<&S::PLTTP>, "4800", Range(0, kMost32),
     Control(kPrompting, "txtPlaylistTime", kSeconds)},
    {"SSE", "PLTCC", kWord, Field<&S::PLTCC>, "False", kAny, Control(kPrompting, "chkPlaylistCount", kItems)},
    {"SSE", "PLTCP", kInteger32, Field<&S::PLTCP>, "15", Range(0, kMost32),
     Control(kPrompting, "txtPlaylistCount", kItems)},
    {"SSE", "DefSName", kText, Field<&S::DefSName>, "%0", Range(0, 255),
     Control(kInterface, "txtSaveName", "Default Playlist Filename for Saving:")},
    {"SSE", "AUDate", kWord, Field<&S::AUDate>, "True", kAny,
     Control(kGeneral, "chkUpdate", "Automatically check for &Updates")},
    {"SSE", "V", kFlag, Field<&S::V>, "1", kAny, Control(kStartup, "chkSaveSettings", "&Save settings on exit")},
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
  return FirstCharacters(text, static_cast<std::size_t>(row.limits.most));
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
    return FirstCharacters(Trim(std::get<std::string>(value)), static_cast<std::size_t>(row.limits.most));
  if (row.code == kWord) return std::get<bool>(value) ? "True" : "False";
  if (row.code == kFlag) return std::to_string(BoolToFlag(std::get<bool>(value)));
  return std::to_string(std::get<std::int32_t>(value));
}

std::string SettingCaption(const SettingRow& row, const SettingValue& value) {
  const auto* const number = std::get_if<std::int32_t>(&value);
  const bool first = number == nullptr ? value != SettingValue(false) : *number == row.limits.least;
  const SettingControl& control = first || row.place.other.name.empty() ? row.place.control : row.place.other;
  return ReplaceAll(control.caption, "&", "");
}

}  // namespace qublet
