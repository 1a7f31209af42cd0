#include "tools/rename/rename_config.h"

#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::string_view kMarker = "\xC2\x8F";  // U+008F

std::string Quoted(const std::string& text) {
  return "'" + text + "'";
}

std::string SentenceOf(const RenameRule& rule) {
  if (rule.from.empty()) return Quoted(rule.to) + " will be added to the end of the filename.";
  if (rule.to.empty()) return Quoted(rule.from) + " will be removed from the filename.";
  return Quoted(rule.from) + " in the filename will be replaced with " + Quoted(rule.to) + ".";
}

}  // namespace

RenameConfig::RenameConfig() {
  for (std::size_t slot = 0; slot < kRuleSlots; ++slot) ClearSlot(*this, slot);
  PutRule(*this, 0, {"_", " "}, true);
}

void SetRenameDefaults(RenameConfig& config) {
  config = RenameConfig();
}

std::string PadRuleText(std::string_view text, std::size_t length) {
  std::string padded(text);
  for (std::size_t count = CharacterCount(text); count < length; ++count) padded += kMarker;
  return padded;
}

std::string WithoutMarker(std::string_view text) {
  return ReplaceAll(text, kMarker, "");
}

std::string RuleText(std::string_view fixed) {
  const std::string text = WithoutMarker(fixed);
  return text.size() == fixed.size() ? "" : text;
}

RenameRule RuleInSlot(const RenameConfig& config, std::size_t slot) {
  return {RuleText(config.ToReplace.at(slot)), RuleText(config.ReplaceTo.at(slot))};
}

void PutRule(RenameConfig& config, std::size_t slot, const RenameRule& rule, bool active) {
  config.ToReplace.at(slot) = FirstCharacters(PadRuleText(rule.from, kFixedLength), kFixedLength);
  config.ReplaceTo.at(slot) = FirstCharacters(PadRuleText(rule.to, kFixedLength), kFixedLength);
  config.RuleActive.at(slot) = active;
}

void ClearSlot(RenameConfig& config, std::size_t slot) {
  config.ToReplace.at(slot).assign(kFixedLength, ' ');
  config.ReplaceTo.at(slot).assign(kFixedLength, ' ');
  config.RuleActive.at(slot) = false;
}

void RemoveSlot(RenameConfig& config, std::size_t slot) {
  for (; slot + 1 < kRuleSlots; ++slot) {
    config.ToReplace[slot] = config.ToReplace[slot + 1];
    config.ReplaceTo[slot] = config.ReplaceTo[slot + 1];
    config.RuleActive[slot] = config.RuleActive[slot + 1];
  }
  ClearSlot(config, kRuleSlots - 1);
}

std::string RuleRowText(const RenameRule& rule) {
  if (rule.from.empty()) return "Add " + Quoted(rule.to);
  if (rule.to.empty()) return "Remove " + Quoted(rule.from);
  return "Replace " + Quoted(rule.from) + " with " + Quoted(rule.to);
}

std::vector<std::string> BuildRenameSummary(const RenameConfig& config) {
  std::vector<std::string> list;
  const auto add = [&list](bool wanted, const std::string& sentence) {
    if (wanted) list.push_back(sentence);
  };
  add(config.Extension, "The extension will be made lower case.");
  add(config.RenID3, "The filename will be created from ID3v1/2 Data.");
  for (std::size_t slot = 0; slot < kRuleSlots; ++slot) {
    const RenameRule rule = RuleInSlot(config, slot);
    add(config.RuleActive[slot] && rule.from != rule.to, SentenceOf(rule));
  }
  add(config.RemNumbers, "Any number characters will be removed.");
  add(config.Capitalise, "Words will be formatted to start with a capital letter.");
  add(config.LowFilename, "The filename will be made lowercase.");
  add(config.Increment,
      std::string("Numbers will be added to the ") + (config.IncPos ? "start" : "end") + " of each file.");
  add(config.Truncat, "The filename will be truncated to " + std::to_string(config.Truncval) + " characters.");
  add(true, "The filename will be validated and rebuilt");
  add(true, "The file will be renamed and the change logged.");
  return list;
}

}  // namespace qublet
