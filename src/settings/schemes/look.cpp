#include "settings/schemes/look.h"

#include <algorithm>

#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"
#include "settings/setting_rows.h"

namespace qublet {
namespace {

constexpr std::int32_t kWindowColour = -0x7FFFFFFB;  // 0x80000005
constexpr std::int32_t kWindowText = -0x7FFFFFF8;    // 0x80000008

constexpr Scheme kSchemes[] = {
    {"schDefault", "Default", kWindowColour, kWindowText, "Tahoma", 8, false},
    {"schGreenLCD", "Green LCD", 0x00533A, 0x00DFC4, "Arial Narrow", 8, false},
    {"schBlueStudio", "Blue Studio", 0x800000, 0xFF0000, "Arial", 8, false},
    {"schPastel", "Pastel", 0xFFE8E8, 0x000000, "Arial Narrow", 9, false},
    {"schOldSkool", "Old Skool", 0x00002B, 0x0000FF, "Verdana", 6.75, true},
    {"schDJ", "DJ", 0x37371C, 0xFF5151, "Verdana", 6.75, true},
    {"schClear", "Clear", 0x974B00, 0xFFCF6A, "Arial Narrow", 8, false},
};

const SettingLimits& SizeLimits() {
  return FindSettingRow("TableFont", "Size")->limits;
}

bool IsOfLook(const Setting& setting) {
  return setting.section == "TableFont" ||
         (setting.section == "TableB" && (setting.key == "BC" || setting.key == "FC")) || setting.key == "GRID";
}

}  // namespace

std::span<const Scheme> Schemes() {
  return kSchemes;
}

const Scheme* FindScheme(std::string_view caption) {
  const auto* const found = std::ranges::find(kSchemes, caption, &Scheme::caption);
  return found == std::end(kSchemes) ? nullptr : found;
}

Look LookOf(const Scheme& scheme) {
  Look look;
  look.background = scheme.background;
  look.text = scheme.text;
  look.font = scheme.font;
  look.size = scheme.size;
  look.grid = scheme.grid;
  return look;
}

std::int16_t WholeSize(const Look& look) {
  return ToInteger16(RoundHalfEven(look.size));
}

Look LookOf(const AppSettings& settings) {
  return {settings.BC,   settings.FC,     Trim(settings.Name),    static_cast<double>(settings.Size),
          settings.Bold, settings.Italic, settings.Strikethrough, settings.Underline,
          settings.GRID};
}

void StoreLook(const Look& look, AppSettings& settings) {
  settings.BC = look.background;
  settings.FC = look.text;
  settings.Name = look.font;
  ResumeNext([&] { settings.Size = WholeSize(look); });
  settings.Bold = look.bold;
  settings.Italic = look.italic;
  settings.Strikethrough = look.strikethrough;
  settings.Underline = look.underline;
  settings.GRID = look.grid;
}

std::vector<Setting> StoredLook(const AppSettings& settings) {
  std::vector<Setting> stored = StoredSettings(settings);
  std::erase_if(stored, [](const Setting& setting) { return !IsOfLook(setting); });
  return stored;
}

double ShownSize(const Look& look) {
  return std::clamp<double>(look.size, SizeLimits().least, SizeLimits().most);
}

bool TakeLook(const Look& from, Look& to) {
  to.background = from.background;
  to.text = from.text;
  if (from.font.empty()) return false;
  to.font = from.font;
  if (from.size != ShownSize(from)) return false;
  to = from;
  return true;
}

}  // namespace qublet
