#include "tools/rename/renamer.h"

#include <array>

#include "playlist/paths/text.h"
#include "tools/rename/apply_rules.h"
#include "tools/rename/rename_settings.h"

// The rules and options of the rename window.

namespace qublet {
namespace {

constexpr std::size_t kRowsAtWhichNoneIsAdded = 19;
constexpr const char* kFilter = "Replace Settings (*.rps)|*.rps|";
constexpr const char* kExtension = "rps";

// The last row that is the same rule, or would be with one of its texts empty; the count of rows when there is none.
std::size_t DuplicateOf(const std::vector<RuleRow>& list, const std::string& from, const std::string& to) {
  const std::string replace = "Replace '" + from + "' with '" + to + "'";
  const std::string add = RuleRowText({"", to});
  const std::string remove = "Remove '" + from + "'";
  std::size_t place = list.size();
  for (std::size_t row = 0; row < list.size(); ++row) {
    const std::string& text = list[row].text;
    if (text == replace || text == add || text == remove) place = row;
  }
  return place;
}

}  // namespace

void Renamer::Tell(const char* text, MessageIcon icon) const {
  engine_.services.dialogs.ShowMessage(text, icon, MessageButtons::kOk);
}

void Renamer::AddRule_Click(const std::string& ToReplace, const std::string& ReplaceTo) {
  const std::string from = WithoutMarker(ToReplace);
  const std::string to = WithoutMarker(ReplaceTo);
  std::vector<RuleRow>& list = view.RuleList;
  if (from == to || list.size() >= kRowsAtWhichNoneIsAdded) {
    if (list.size() == kRowsAtWhichNoneIsAdded) Tell("A maximum of 20 rules only can be added!   ");
    if (from == to && !from.empty())
      Tell("Text in both fields are the same, the rule will not perform any useful function.   ");
    return;
  }
  const std::size_t row = DuplicateOf(list, from, to);
  if (row == list.size()) {
    PutRule(config_, row, {from, to}, true);
    list.push_back({RuleRowText({from, to}), true});
    return;
  }
  if (list[row].ticked) Tell("This rule has already been added and is active.   ");
  list[row].ticked = true;
  config_.RuleActive.at(row) = true;
}

void Renamer::RemoveRule_Click(int row) {
  if (row < 0 || row >= static_cast<int>(view.RuleList.size())) return;
  RemoveSlot(config_, static_cast<std::size_t>(row));
  view.RuleList.erase(view.RuleList.begin() + row);
}

void Renamer::RuleList_ItemCheck(int row, bool ticked) {
  view.RuleList.at(static_cast<std::size_t>(row)).ticked = ticked;
  for (std::size_t slot = 0; slot < view.RuleList.size(); ++slot)
    config_.RuleActive.at(slot) = view.RuleList[slot].ticked;
}

void Renamer::Option_Click(bool RenameConfig::*field, bool value) {
  config_.*field = view.options.*field = value;
}

void Renamer::Truncval_Click(int characters) {
  config_.Truncval = view.options.Truncval = characters;
}

void Renamer::ShowRenameConfig() {
  view.options = config_;
  view.RuleList.clear();
  for (std::size_t slot = 0; slot < kRuleSlots; ++slot) {
    const RenameRule rule = RuleInSlot(config_, slot);
    if (rule.from != rule.to) view.RuleList.push_back({RuleRowText(rule), config_.RuleActive[slot]});
  }
}

void Renamer::RulesSave_Click() {
  const auto path = engine_.services.dialogs.ShowSave({engine_.program_folder + "\\*.rps", kFilter, kExtension});
  if (!path || engine_.playlist_files.CheckExists(*path)) return;
  if (WriteRenameSettings(engine_.services.files, *path, config_))
    view.report = "Renaming Configuration Saved to: '" + *path + "'";
  else
    Tell("An error occured writing this file!   ", MessageIcon::kExclamation);
}

void Renamer::RulesLoad_Click() {
  const auto path = engine_.services.dialogs.ShowOpen({engine_.program_folder + "\\*.rps", kFilter, kExtension});
  if (!path) return;
  if (!ReadRenameSettings(engine_.services.files, *path, config_)) {
    Tell("An error occured reading this file!   ", MessageIcon::kExclamation);
    Tell("Older RPS files may not work due to an update.   ");
    return;
  }
  ShowRenameConfig();
  view.report = "Renaming Configuration Loaded from: '" + *path + "'";
}

void Renamer::RulesDef_Click() {
  SetRenameDefaults(config_);
  ShowRenameConfig();
}

void Renamer::RenTest_Click(const std::string& Test1) {
  constexpr std::int16_t kIndex = 8;
  constexpr std::int16_t kTotal = 10;
  view.Test1 = Test1;
  view.Test2 = ApplyRenameRules(engine_.services.files, config_, Test1, kIndex, kTotal, false);
  view.report = "Generated Test FileName from: " + Test1;
}

void Renamer::RenReset_Click() {
  view.Test1 = RenameView::kSampleName;
  view.Test2.clear();
}

void Renamer::ShowSummary() {
  view.TestList = BuildRenameSummary(config_);
  view.report = "Generated Report of Renaming Rules...";
}

}  // namespace qublet
