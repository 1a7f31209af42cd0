#include "generators/disc/wizard_settings.h"

#include <array>

#include "generators/disc/compilation.h"
#include "generators/disc/disc_icons.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

constexpr std::string_view kSection = "MP3CDWiz";
constexpr std::string_view kInit = "Init";
constexpr std::array<std::string_view, kRecentDiscs> kRecentKeys = {"RI1", "RI2", "RI3", "RI4", "RI5"};

struct BoxRow {
  std::string_view key;
  bool DiscExtras::*box;
};
constexpr std::array<BoxRow, 6> kBoxes = {{{"CB", &DiscExtras::chkCopyBrowser},
                                           {"CT", &DiscExtras::chkCreateAutorun},
                                           {"AI", &DiscExtras::chkAutoIcon},
                                           {"AB", &DiscExtras::chkAutoBigList},
                                           {"AX", &DiscExtras::chkAutoIndex},
                                           {"CA", &DiscExtras::chkCreateTable}}};

std::string Kept(const Session& session, std::string_view key) {
  return session.Kept({kSection, key});
}

// A row that the list doesn't have fails as a text that is no number does.
int RowOf(const std::string& text, int rows) {
  const int row = TextToInteger16(text);
  if (row < 0 || row >= rows) throw Failure("no such row");
  return row;
}

}  // namespace

bool LoadWizardSettings(const Session& session, const FileSystem& files, DiscChoices& choices) {
  if (Kept(session, kInit).empty()) return false;
  for (const auto& [key, box] : kBoxes)
    ResumeNext([&, key = key, box = box] { choices.extras.*box = TextToInteger16(Kept(session, key)) != 0; });
  std::string folder = Kept(session, "AL");
  choices.AssembleLoc = FileExists(files, folder) ? folder : "";
  ResumeNext([&] { choices.ImSize = RowOf(Kept(session, "SZ"), static_cast<int>(kDiscSizes.size())); });
  ResumeNext([&] { choices.IconChooser = RowOf(Kept(session, "IC"), kDiscIcons + 1); });
  choices.IconFile = Kept(session, "IFL");
  choices.ReportFile = Kept(session, "RFL");
  choices.recent.clear();
  for (const std::string_view key : kRecentKeys) {
    std::string name = Kept(session, key);
    if (!name.empty()) choices.recent.push_back(std::move(name));
  }
  return true;
}

void SaveWizardSettings(Session& session, const DiscChoices& choices) {
  const auto keep = [&](std::string_view key, const std::string& value) { session.Keep({kSection, key}, value); };
  keep(kInit, "1");
  for (const auto& [key, box] : kBoxes) keep(key, choices.extras.*box ? "1" : "0");
  keep("AL", choices.AssembleLoc);
  keep("SZ", std::to_string(choices.ImSize));
  keep("IC", std::to_string(choices.IconChooser));
  keep("IFL", choices.IconFile);
  keep("RFL", choices.ReportFile);
  for (std::size_t i = 0; i < kRecentDiscs; ++i)
    keep(kRecentKeys[i], i < choices.recent.size() ? choices.recent[i] : "");
}

}  // namespace qublet
