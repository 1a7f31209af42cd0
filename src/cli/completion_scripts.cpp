#include "cli/completion_scripts.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "cli/command_table.h"
#include "cli/usage.h"

namespace qublet {
namespace {

struct Completed {
  std::string name;
  std::string help;  // one line
  Usage usage;
};

// Each command once, with what its first row says of it.
std::vector<Completed> AllCommands() {
  std::vector<Completed> commands;
  for (const CliCommand& row : CliCommands()) {
    if (!commands.empty() && commands.back().name == row.name) continue;
    std::string help = row.help;
    std::erase(help, '\'');
    commands.push_back({row.name, help.substr(0, help.find_first_of(";\n")), UsageOf(row.name)});
  }
  commands.push_back({"help", "print all commands", {}});
  return commands;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::string NamesOf(const std::vector<Completed>& commands) {
  std::vector<std::string> names;
  for (const Completed& command : commands) names.push_back(command.name);
  return Joined(names);
}

std::string OptionsOf(const Usage& usage) {
  std::vector<std::string> names;
  for (const Usage::Option& option : usage.options) names.push_back(option.name);
  return Joined(names);
}

bool TakesFolder(const Usage::Option& option) {
  return option.value == "FOLDER";
}
bool TakesFile(const Usage::Option& option) {
  static const char* const kFiles[] = {"FILE", "OUT", "PICTURE", "SOURCE"};
  return std::ranges::any_of(kFiles, [&](const char* what) { return option.value.starts_with(what); });
}
bool TakesNothing(const Usage::Option& option) {
  return option.value.empty() && option.choices.empty();
}

}  // namespace

// Names of files are left to readline, which knows how to quote them.
void PrintBashCompletion(std::ostream& out) {
  const std::vector<Completed> commands = AllCommands();
  out << "# Completes qublet in bash.\n"
         "_qublet() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} words= options=\n"
         "  COMPREPLY=()\n"
         "  if ((COMP_CWORD == 1)); then\n"
         "    COMPREPLY=($(compgen -W '"
      << NamesOf(commands)
      << " --version' -- \"$word\"))\n"
         "    return\n"
         "  fi\n"
         "  case ${COMP_WORDS[1]} in\n";
  for (const auto& [name, help, usage] : commands) {
    out << "    " << name << ")\n      words='" << Joined(usage.words) << "' options='" << OptionsOf(usage)
        << "'\n      case $before in\n";
    for (const Usage::Option& option : usage.options) {
      if (!option.choices.empty())
        out << "        " << option.name << ") COMPREPLY=($(compgen -W '" << Joined(option.choices)
            << "' -- \"$word\")); return ;;\n";
      if (TakesFolder(option))
        out << "        " << option.name << ") compopt -o dirnames +o default 2>/dev/null; return ;;\n";
      if (TakesFile(option)) out << "        " << option.name << ") return ;;\n";
    }
    out << "      esac ;;\n";
  }
  out << "  esac\n"
         "  if [[ $word == -* ]]; then\n"
         "    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n"
         "  elif ((COMP_CWORD == 2)); then\n"
         "    COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
         "  fi\n"
         "}\n"
         "complete -o default -F _qublet qublet\n";
}

void PrintZshCompletion(std::ostream& out) {
  const std::vector<Completed> commands = AllCommands();
  out << "#compdef qublet\n"
         "_qublet() {\n"
         "  local word=$words[CURRENT] before=$words[CURRENT-1]\n"
         "  local -a commands=(\n";
  for (const Completed& command : commands) out << "    '" << command.name << ":" << command.help << "'\n";
  out << "  )\n"
         "  if ((CURRENT == 2)); then\n"
         "    if [[ $word == -* ]]; then compadd -- --version; else _describe command commands; fi\n"
         "    return\n"
         "  fi\n"
         "  case $words[2] in\n";
  for (const auto& [name, help, usage] : commands) {
    out << "    " << name << ")\n      case $before in\n";
    for (const Usage::Option& option : usage.options) {
      if (!option.choices.empty())
        out << "        " << option.name << ") compadd -- " << Joined(option.choices) << "; return ;;\n";
      if (TakesFolder(option)) out << "        " << option.name << ") _files -/; return ;;\n";
      if (TakesFile(option)) out << "        " << option.name << ") _files; return ;;\n";
    }
    out << "      esac\n"
           "      if [[ $word == -* ]]; then compadd -- "
        << OptionsOf(usage) << "; return; fi\n";
    if (!usage.words.empty()) out << "      ((CURRENT == 3)) && compadd -- " << Joined(usage.words) << "\n";
    out << "      ;;\n";
  }
  // As a file of the function path its body is the function; read as a script it names it.
  out << "  esac\n"
         "  _files\n"
         "}\n"
         "if [[ $funcstack[1] == _qublet ]]; then _qublet \"$@\"; else compdef _qublet qublet; fi\n";
}

void PrintFishCompletion(std::ostream& out) {
  const std::vector<Completed> commands = AllCommands();
  out << "# Completes qublet in fish.\n"
         "complete -c qublet -n __fish_use_subcommand -f -l version -d 'print the version'\n";
  for (const auto& [name, help, usage] : commands) {
    out << "complete -c qublet -n __fish_use_subcommand -f -a " << name << " -d '" << help << "'\n";
    const std::string here = "complete -c qublet -n '__fish_seen_subcommand_from " + name;
    if (!usage.words.empty())
      out << here << "; and test (count (commandline -opc)) -eq 2' -a '" << Joined(usage.words) << "'\n";
    for (const Usage::Option& option : usage.options) {
      out << here << "' -l " << option.name.substr(2);
      if (!option.choices.empty()) {
        out << " -x -a '" << Joined(option.choices) << "'";
      } else if (TakesFolder(option)) {
        out << " -x -a '(__fish_complete_directories)'";
      } else if (!TakesNothing(option)) {
        out << (TakesFile(option) ? " -r" : " -x");
      }
      out << "\n";
    }
  }
}

}  // namespace qublet
