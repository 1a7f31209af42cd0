#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qublet {

// What the tag editor makes of texts.

// The value of a decimal number: blanks around it, a sign and a fraction are allowed, nothing else.
std::optional<double> NumericValue(std::string_view text);

// A title from a file's name: without ".mp3" wherever it occurs, in whatever case, each word capitalised.
std::string TitleFromFileName(std::string_view name);

// The name of the folder that a file lies in; "" where the path tells none.
std::string ParentFolderName(std::string_view path);

}  // namespace qublet
