#pragma once

#include <QString>
#include <vector>

namespace qublet {

struct LetterRange {
  int start = 0;
  int length = 0;
  bool operator==(const LetterRange&) const = default;
};

// The letters of `text` that aren't in `other` too, in the same order: all but the longest sequence that both share.
std::vector<LetterRange> ChangedLetters(const QString& text, const QString& other);

}  // namespace qublet
