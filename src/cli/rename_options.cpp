#include "cli/rename_options.h"

#include <algorithm>
#include <limits>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

using Purpose = RenameOptions::Purpose;

constexpr std::size_t kLongestRuleText = kFixedLength - 1;

struct FlagField {
  const char* name;
  bool RenameConfig::*field;
};

constexpr FlagField kFlags[] = {
    {"Capitalise", &RenameConfig::Capitalise}, {"Extension", &RenameConfig::Extension},
    {"Increment", &RenameConfig::Increment},   {"IncPos", &RenameConfig::IncPos},
    {"Truncat", &RenameConfig::Truncat},       {"LowFilename", &RenameConfig::LowFilename},
    {"RenID3", &RenameConfig::RenID3},         {"RemNumbers", &RenameConfig::RemNumbers}};
constexpr const char* kLimit = "Truncval";

const FlagField* FindFlag(const std::string& name) {
  const auto* const flag = std::ranges::find_if(kFlags, [&](const FlagField& row) { return name == row.name; });
  return flag == std::end(kFlags) ? nullptr : flag;
}

std::pair<std::string, std::string> SettingOf(const std::string& text) {
  auto [name, value] = FieldAndValue(text);
  if (name == kLimit) {
    NumberOf<std::int32_t>(value, name);
  } else {
    if (FindFlag(name) == nullptr) throw Failure("no such field: " + name);
    FlagOf(value, name);
  }
  return {name, value};
}

RenameRule RuleOf(const std::string& find, const std::string& replacement) {
  const RenameRule rule{WithoutMarker(find), WithoutMarker(replacement)};
  if (rule.from == rule.to) throw Failure("the two texts of a rule are the same");
  if (std::max(CharacterCount(rule.from), CharacterCount(rule.to)) > kLongestRuleText)
    throw Failure("a text of a rule has at most " + std::to_string(kLongestRuleText) + " characters");
  return rule;
}

// Goes through the arguments from the first to the last: what stands behind an option is never taken for another.
class Parser {
 public:
  explicit Parser(const CommandContext& context) : context_(context), arguments_(context.arguments) {}

  RenameOptions Parse() {
    while (at_ < arguments_.size()) {
      const std::string word = arguments_[at_++];
      if (word == "--") {
        options_.paths.insert(options_.paths.end(), arguments_.begin() + static_cast<std::ptrdiff_t>(at_),
                              arguments_.end());
        break;
      }
      if (!TakeRule(word) && !TakePurpose(word) && !TakeManner(word)) TakePath(word);
    }
    Check();
    return options_;
  }

 private:
  const std::string& Next(const std::string& option) {
    if (at_ == arguments_.size()) throw Failure(option + " wants something behind it");
    return arguments_[at_++];
  }

  bool TakeRule(const std::string& word) {
    if (word == "--rules") {
      if (options_.rules_file) throw Failure(word + " is given twice");
      options_.rules_file = Next(word);
    } else if (word == "--set") {
      options_.settings.push_back(SettingOf(Next(word)));
    } else if (word == "--no-rules") {
      options_.no_rules = true;
    } else if (word == "--rule") {
      const std::string& find = Next(word);
      options_.rules.push_back(RuleOf(find, Next(word)));
      if (options_.rules.size() > kRuleSlots)
        throw Failure("there is room for " + std::to_string(kRuleSlots) + " rules");
    } else {
      return false;
    }
    return true;
  }

  bool TakePurpose(const std::string& word) {
    if (word == "--try") {
      SetPurpose(Purpose::kTry);
      options_.subject = Next(word);
    } else if (word == "--save-rules") {
      SetPurpose(Purpose::kSaveRules);
      options_.subject = Next(word);
    } else if (word == "--undo") {
      SetPurpose(Purpose::kUndo);
      if (at_ < arguments_.size() && !arguments_[at_].starts_with('-'))
        options_.undone_run = NumberOf<int>(Next(word), word);
    } else if (word == "--history") {
      SetPurpose(Purpose::kHistory);
    } else {
      return false;
    }
    return true;
  }

  void SetPurpose(Purpose purpose) {
    if (options_.purpose != Purpose::kRun) throw Failure("these options don't go together");
    options_.purpose = purpose;
  }

  bool TakeManner(const std::string& word) {
    if (word == "--reset-per-folder" || word == "--no-reset") {
      options_.reset_per_folder = word == "--reset-per-folder";
      (options_.reset_per_folder ? reset_ : no_reset_) = true;
    } else if (word == "--dry-run") {
      options_.dry_run = true;
    } else if (word == "--json") {
      options_.json = true;
    } else if (word == "--replace") {
      options_.replace = true;
    } else if (word == "--index" || word == "--total") {
      (word == "--index" ? options_.index : options_.total) = NumberOf<std::int16_t>(Next(word), word);
      numbered_ = true;
    } else {
      return false;
    }
    return true;
  }

  void TakePath(const std::string& word) {
    if (word.size() > 1 && word[0] == '-' && !context_.files.Attributes(word))
      throw Failure("unknown option " + word);
    options_.paths.push_back(word);
  }

  void Check() const {
    const bool runs = options_.purpose == Purpose::kRun;
    const bool makes_rules = runs || options_.purpose == Purpose::kTry || options_.purpose == Purpose::kSaveRules;
    const bool rules =
        options_.rules_file || options_.no_rules || !options_.settings.empty() || !options_.rules.empty();
    const bool manners = reset_ || no_reset_ || options_.dry_run || options_.json;
    if ((reset_ && no_reset_) || (manners && !runs) || (rules && !makes_rules) ||
        (numbered_ && options_.purpose != Purpose::kTry) ||
        (options_.replace && options_.purpose != Purpose::kSaveRules))
      throw Failure("these options don't go together");
    if (runs && options_.paths.empty()) throw Failure("a path is wanted");
    if (!runs && !options_.paths.empty()) throw Failure("no path is wanted");
  }

  const CommandContext& context_;
  const Arguments& arguments_;
  std::size_t at_ = 0;
  RenameOptions options_;
  bool reset_ = false;
  bool no_reset_ = false;
  bool numbered_ = false;
};

}  // namespace

RenameOptions TakeRenameOptions(const CommandContext& context) {
  return Parser(context).Parse();
}

void ApplyOptions(const RenameOptions& options, RenameConfig& config) {
  for (const auto& [name, value] : options.settings) {
    if (name == kLimit)
      config.Truncval = NumberOf<std::int32_t>(value, name);
    else
      config.*(FindFlag(name)->field) = value == "1";
  }
  if (options.no_rules || !options.rules.empty()) {
    for (std::size_t slot = 0; slot < kRuleSlots; ++slot) ClearSlot(config, slot);
  }
  for (std::size_t slot = 0; slot < options.rules.size(); ++slot) PutRule(config, slot, options.rules[slot], true);
}

}  // namespace qublet
