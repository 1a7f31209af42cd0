#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// Whole text files, read and replaced at once. Nothing here throws.

// Puts a file's bytes into `bytes`. Given up for a file longer than 256 MiB, which no text of this program is.
Outcome ReadTextFile(const FileSystem& files, const std::string& path, std::string& bytes);
// Creates or replaces `path`; on a failure the present file is as it was.
Outcome WriteTextFile(const FileSystem& files, const std::string& path, std::string_view bytes);

// The lines of a text. CR LF, LF and CR end a line; a last line without an end counts, nothing behind the last end
// doesn't.
Collection SplitLines(std::string_view text);
// Cuts the first line with its end off a text that isn't empty, and gives it without its end.
std::string_view TakeLine(std::string_view& text);

// Appends every line of a file to `lines`, empty ones included. The bytes are UTF-8 or code page (see DecodeText).
Outcome ReadLinesFromFile(const FileSystem& files, Collection& lines, const std::string& path);

// One line per item, CR LF at the end of each, encoded by EncodeText.
std::string EncodeLines(const Collection& lines);
// Creates or replaces `path` with them.
Outcome WriteLinesToFile(const FileSystem& files, const std::string& path, const Collection& lines);
Outcome WriteLinesToFileChecked(const FileSystem& files, const Collection& lines, const std::string& path);

}  // namespace qublet
