#pragma once

#include "cli/arguments.h"

namespace qublet {

// "bookmarks list", "show CATEGORY", "add CATEGORY PATH...", "remove CATEGORY": the program's own bookmarks.
// "bookmarks titles FILE PATH...": a player's bookmark file of the rows that the paths give.
int BookmarksCommand(CommandContext& context);

}  // namespace qublet
