#pragma once

#include <iosfwd>
#include <span>

#include "cli/arguments.h"

namespace qublet {

// A row of the table of commands. A command that is used in several ways has several rows, one behind the other.
struct CliCommand {
  const char* name;
  const char* usage;
  const char* help;
  int (*run)(CommandContext& context);
};

// Every command but "help" and "--version".
std::span<const CliCommand> CliCommands();

// Runs what the arguments of the program ask for (its own name left out) and gives the exit code.
// `dialogs` are those of the engine.
int RunCommand(const Arguments& arguments, Engine& engine, PrintedDialogs& dialogs, std::ostream& out,
               std::ostream& err);

}  // namespace qublet
