#pragma once

#include <string>
#include <string_view>

namespace qublet {

// The parts of a path, by substitution of text and not by parsing: an occurrence of a file's name elsewhere in its
// path goes along with it.

// From the last "." to the end, dot included, case kept; "" if there is no dot.
std::string GetExtension(std::string_view name);
// The piece behind the last "\", the whole text if there is none; "" for "" and for a path that ends in "\".
std::string GetFileName(std::string_view path);
// What of `path` stands in front of that, just as it stands there.
std::string FolderAsItStands(std::string_view path);
// `path` with every occurrence of GetFileName(path) removed; the trailing "\" stays.
std::string GetFolderPath(std::string_view path);
// A drive without "\" gets one ("c:" -> "c:\"), the drive letter becomes lower case (and every later occurrence of
// it), one "\" at the end is cut. Changes its argument and gives it back.
const std::string& NormalizePath(std::string& path);
std::string NormalizedPath(std::string path);

}  // namespace qublet
