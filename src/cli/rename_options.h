#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/arguments.h"
#include "tools/rename/rename_config.h"

namespace qublet {

// What `qublet rename` is asked for.
struct RenameOptions {
  enum class Purpose { kRun, kTry, kSaveRules, kUndo, kHistory };

  Purpose purpose = Purpose::kRun;
  std::string subject;            // the text to try, the file to save to
  std::optional<int> undone_run;  // the newest if there is none
  bool replace = false;
  std::int16_t index = 8;
  std::int16_t total = 10;

  std::optional<std::string> rules_file;
  std::vector<std::pair<std::string, std::string>> settings;  // field and value
  bool no_rules = false;
  std::vector<RenameRule> rules;

  bool reset_per_folder = true;
  bool dry_run = false;
  bool json = false;
  Arguments paths;
};

// Throws Failure for wrong use.
RenameOptions TakeRenameOptions(const CommandContext& context);

// The record that the options make of `config`, the defaults or what a file held; the order that they stand in makes
// no difference.
void ApplyOptions(const RenameOptions& options, RenameConfig& config);

}  // namespace qublet
