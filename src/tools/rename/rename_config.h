#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// The rules of a batch rename, and how they are kept. A fixed text is padded at its right with the character U+008F:
// so a text may end in blanks. One without that character reads as empty, whatever it holds.

inline constexpr std::size_t kRuleSlots = 21;
inline constexpr std::size_t kFixedLength = 100;  // characters

// The fields in the order of the file that keeps them.
struct RenameConfig {
  bool Capitalise = true;
  bool Extension = true;
  bool Increment = false;
  bool IncPos = true;  // the number stands at the start
  std::array<std::string, kRuleSlots> ToReplace;
  std::array<std::string, kRuleSlots> ReplaceTo;
  std::array<bool, kRuleSlots> RuleActive{};
  bool Truncat = false;
  std::int32_t Truncval = 32;  // characters, without the extension
  bool LowFilename = false;
  bool RenID3 = false;
  bool RemNumbers = false;
  std::string Version;  // two characters, set when it is saved

  RenameConfig();
  bool operator==(const RenameConfig&) const = default;
};

void SetRenameDefaults(RenameConfig& config);

// `text` with as many U+008F behind it as make it `length` characters long.
std::string PadRuleText(std::string_view text, std::size_t length);
// What a fixed text holds.
std::string RuleText(std::string_view fixed);
// Without the character that stands for the end of a text.
std::string WithoutMarker(std::string_view text);

// Exactly one of the kinds: replace, add (no `from`), remove (no `to`).
struct RenameRule {
  std::string from;
  std::string to;
  bool operator==(const RenameRule&) const = default;
};

RenameRule RuleInSlot(const RenameConfig& config, std::size_t slot);
void PutRule(RenameConfig& config, std::size_t slot, const RenameRule& rule, bool active);
// Its texts become blanks, and it isn't active.
void ClearSlot(RenameConfig& config, std::size_t slot);
// All higher slots move one down; the last one is blank.
void RemoveSlot(RenameConfig& config, std::size_t slot);

// "Replace 'a' with 'b'", "Add 'b'" or "Remove 'a'".
std::string RuleRowText(const RenameRule& rule);
// What the run will do, a sentence a row.
std::vector<std::string> BuildRenameSummary(const RenameConfig& config);

}  // namespace qublet
