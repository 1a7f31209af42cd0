#pragma once

#include <string>
#include <string_view>

namespace qublet {

// Keys by which texts that people take for the same are found. A byte that isn't UTF-8 stays as it is.

// A key by which texts that differ only in case are equal (Unicode case folding, one character for one).
std::string FoldCase(std::string_view text);
// With every accent as a character of its own behind its letter (Unicode's canonical decomposition). A text that
// isn't UTF-8 stays as it is.
std::string Decomposed(std::string_view text);
// A key by which texts are equal that differ only in case or in where their accents stand.
std::string SimilarityKey(std::string_view text);

}  // namespace qublet
