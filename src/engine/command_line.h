#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"
#include "playlist/items.h"

namespace qublet {

// The paths that the program was started with, native or in drive form, as one text: each in drive form, absolute
// against the folder of the start, in double quotes, with a blank between. What is no path ("", or where no drive
// leads) is empty quotes: it was given, but opens nothing.
std::string CommandLineText(const FileSystem& files, const std::vector<std::string>& arguments);

// The two readers of that text. Both give each piece to AddStuff at the end of the list and answer True.

// Takes what stands between each pair of double quotes; a text with fewer than two opens nothing.
bool OpenCommandLineQuoted(Items& items, const std::string& text);
// Cuts at each blank, so that a path that holds one falls apart: the older line of the platform has always done so.
bool OpenCommandLineSplit(Items& items, const std::string& text);

}  // namespace qublet
