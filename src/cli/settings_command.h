#pragma once

#include <iosfwd>

#include "cli/arguments.h"
#include "platform/settings_store.h"

namespace qublet {

// The stored settings of this version of the program, for the arguments behind "settings":
//
//   list                    every stored value, one a line: section, key and value with a tab between (no arguments
//                           mean the same)
//   get SECTION KEY         the value
//   set SECTION KEY VALUE   keeps the value; one that the program couldn't read back is refused
//
// Gives kCouldNot where there is no such value or it can't be kept.
int SettingsCommand(const Arguments& arguments, SettingsStore& store, std::ostream& out, std::ostream& err);

// The same for the store of this user.
int SettingsCommand(CommandContext& context);

}  // namespace qublet
