#include "tools/rename/ui/changed_letters.h"

#include <algorithm>

namespace qublet {
namespace {

// lengths[i][j]: of the longest sequence shared by what stands from i on in one text and from j on in the other.
class SharedLengths {
 public:
  SharedLengths(QStringView one, QStringView other)
      : width_(other.size() + 1), lengths_(static_cast<std::size_t>((one.size() + 1) * width_)) {
    for (qsizetype i = one.size() - 1; i >= 0; --i) {
      for (qsizetype j = other.size() - 1; j >= 0; --j)
        At(i, j) = one[i] == other[j] ? At(i + 1, j + 1) + 1 : std::max(At(i + 1, j), At(i, j + 1));
    }
  }

  int& At(qsizetype i, qsizetype j) { return lengths_[static_cast<std::size_t>(i * width_ + j)]; }

 private:
  qsizetype width_;
  std::vector<int> lengths_;
};

}  // namespace

std::vector<LetterRange> ChangedLetters(const QString& text, const QString& other) {
  std::vector<LetterRange> ranges;
  SharedLengths shared(text, other);
  qsizetype j = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    while (j < other.size() && text[i] != other[j] && shared.At(i, j + 1) == shared.At(i, j)) ++j;
    if (j < other.size() && text[i] == other[j]) {
      ++j;
      continue;
    }
    const int place = static_cast<int>(i);
    if (!ranges.empty() && ranges.back().start + ranges.back().length == place)
      ++ranges.back().length;
    else
      ranges.push_back({place, 1});
  }
  return ranges;
}

}  // namespace qublet
