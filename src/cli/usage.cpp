#include "cli/usage.h"

#include <algorithm>

#include "cli/command_table.h"

namespace qublet {
namespace {

constexpr std::string_view kMore = "[,...]";

// Words, brackets and bars, each by itself; a bar without blanks around it belongs to its word.
std::vector<std::string> TokensOf(std::string_view usage) {
  std::vector<std::string> tokens{""};
  for (std::size_t i = 0; i < usage.size(); ++i) {
    const char letter = usage[i];
    if (usage.substr(i).starts_with(kMore)) {
      i += kMore.size() - 1;
    } else if (letter == '[' || letter == ']') {
      tokens.insert(tokens.end(), {std::string(1, letter), ""});
    } else if (letter == ' ' || letter == '\n') {
      tokens.emplace_back();
    } else if (letter != '.' || !usage.substr(i).starts_with("...")) {
      tokens.back() += letter;
    } else {
      i += 2;
    }
  }
  std::erase(tokens, "");
  return tokens;
}

bool IsBorder(std::string_view token) {
  return token == "[" || token == "]" || token == "|";
}

// Written as it is, or a choice of such words.
bool IsLiteral(std::string_view token) {
  return token.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789|-") == std::string_view::npos &&
         !token.starts_with("-") && !IsBorder(token);
}

std::vector<std::string> ChoicesOf(std::string_view token) {
  std::vector<std::string> choices{""};
  for (const char letter : token) letter == '|' ? choices.emplace_back() : choices.back() += letter;
  return choices;
}

void AddOption(const std::string& name, std::string_view value, Usage& all) {
  if (std::ranges::find(all.options, name, &Usage::Option::name) != all.options.end()) return;
  Usage::Option option{name, "", {}};
  if (IsLiteral(value) && !value.empty()) {
    option.choices = ChoicesOf(value);
  } else if (!IsBorder(value) && !value.starts_with("-")) {
    option.value = value;
  }
  all.options.push_back(option);
}

}  // namespace

void AddUsage(std::string_view usage, Usage& all) {
  const std::vector<std::string> tokens = TokensOf(usage);
  bool begins = true;  // the command's name, a bar, and brackets behind these
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    const std::string& token = tokens[i];
    if (token.starts_with("--")) AddOption(token, i + 1 < tokens.size() ? tokens[i + 1] : "", all);
    if (begins && IsLiteral(token)) {
      for (const std::string& word : ChoicesOf(token))
        if (std::ranges::find(all.words, word) == all.words.end()) all.words.push_back(word);
    }
    begins = token == "|" || (begins && token == "[");
  }
}

Usage UsageOf(std::string_view command) {
  Usage all;
  for (const CliCommand& row : CliCommands())
    if (command == row.name) AddUsage(row.usage, all);
  return all;
}

}  // namespace qublet
