#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/desktop_entry.h"

namespace qublet {

// Which program opens which kind of file, by the database that all desktops share. The files are read anew at each
// call; no process is started.

// The MIME types of a file name's extension, the one that counts most first; empty for kinds that this program
// doesn't deal with. A playlist has several: the shared type database gives *.m3u two of the same weight, and one of
// them has an old name beside it.
std::vector<std::string> TypesOf(const std::string& file_name);

// Whether the name ends like one of the four kinds of audio files.
bool IsAudio(const std::string& file_name);

// The program for the first of the types that has one. What someone chose comes before what is merely installed, and
// what this user chose before what the system offers:
//
//   1. [Default Applications] of <desktop>-mimeapps.list and mimeapps.list, in the folders of configuration and then
//      in those of the applications
//   2. [Added Associations] there, and mimeinfo.cache beside the applications
//   3. the applications themselves, by the types that they name
//
// An entry under [Removed Associations] hides that program in all that counts less. A program that isn't there is
// passed over, and so is our own. Kinds that a type is a special case of are not asked: a text editor is no player.
std::optional<DesktopEntry> FindHandler(const std::vector<std::string>& types);

}  // namespace qublet
