#pragma once

#include <iosfwd>

namespace qublet {

// What each shell needs to complete `qublet`, made from the table of commands.
void PrintBashCompletion(std::ostream& out);
void PrintZshCompletion(std::ostream& out);
void PrintFishCompletion(std::ostream& out);

}  // namespace qublet
