#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// An ordered list of texts, mostly full paths. Where a result is a position in a collection, it counts from 1.
using Collection = std::vector<std::string>;

void ClearCollection(Collection& items);

// Appends the folder of each file (GetFolderPath, "\" at the end). Only neighbours are merged: the same folder can
// come again later. True if anything was added.
bool CollectFolders(const Collection& files, Collection& folders);

// Appends the bare names of the files whose folder is `folder`, which gets a "\" at its end if it has none. True if
// anything was added.
bool FilterFilesInFolder(const Collection& files, Collection& results, std::string& folder);

// Appends the positions, from 1, of the lines that contain `text`. True if anything was added.
bool FilterLinesContaining(const Collection& lines, std::vector<int>& results, std::string_view text);

// Removes every occurrence of `base_folder` + "\", wherever in a line it stands.
void MakeLinesRelative(Collection& lines, std::string_view base_folder);
std::string RelativeLine(std::string_view line, std::string_view base_folder);

// Drops the lines for which FileExists is False. True when none was dropped.
bool KeepExistingFiles(const FileSystem& files, Collection& lines);

// The deepest folder that all files share, without "\" at the end, found by comparing pieces of text: a piece of the
// longest folder counts as shared when its text occurs anywhere in every other folder. So lines need not begin with
// the result; only "" is certain, for files on different drives. "" for no files too.
std::string FindCommonFolder(const Collection& files);

}  // namespace qublet
