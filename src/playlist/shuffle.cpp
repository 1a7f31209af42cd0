#include "playlist/shuffle.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace qublet {
namespace {

constexpr std::size_t kWordBits = 64;

// A list that gives the value at a position and moves it to the end, up to as many times as it has values. A moved
// value leaves a gap: one bit a place says what is still there, and sums over the words of bits (each over as many
// words as the lowest bit of its number says) find a position without counting through all.
class Pool {
 public:
  explicit Pool(const std::vector<int>& values)
      : values_(values), words_(2 * values.size() / kWordBits + 1), sums_(words_.size() + 1) {
    values_.reserve(2 * values.size());
    for (std::size_t place = 0; place < values.size(); ++place) words_[place / kWordBits] |= BitOf(place);
    for (std::size_t i = 1; i < sums_.size(); ++i) {
      sums_[i] += std::popcount(words_[i - 1]);
      const std::size_t above = i + (i & (~i + 1));
      if (above < sums_.size()) sums_[above] += sums_[i];
    }
  }

  // `position` from 1.
  int MoveToEnd(int position) {
    const std::size_t place = PlaceOf(position);
    values_.push_back(values_[place]);
    words_[place / kWordBits] ^= BitOf(place);
    Count(place, -1);
    words_[(values_.size() - 1) / kWordBits] |= BitOf(values_.size() - 1);
    Count(values_.size() - 1, 1);
    return values_.back();
  }

  std::vector<int> Values() const {
    std::vector<int> values;
    for (std::size_t place = 0; place < values_.size(); ++place) {
      if (words_[place / kWordBits] & BitOf(place)) values.push_back(values_[place]);
    }
    return values;
  }

 private:
  static std::uint64_t BitOf(std::size_t place) { return std::uint64_t{1} << (place % kWordBits); }

  void Count(std::size_t place, int change) {
    for (std::size_t i = place / kWordBits + 1; i < sums_.size(); i += i & (~i + 1)) sums_[i] += change;
  }

  std::size_t PlaceOf(int position) const {
    std::size_t word = 0;
    for (std::size_t step = std::bit_floor(words_.size()); step > 0; step /= 2) {
      if (word + step < sums_.size() && sums_[word + step] < position) {
        word += step;
        position -= sums_[word];
      }
    }
    std::uint64_t bits = words_[word];
    while (--position > 0) bits &= bits - 1;
    return word * kWordBits + static_cast<std::size_t>(std::countr_zero(bits));
  }

  std::vector<int> values_;
  std::vector<std::uint64_t> words_;
  std::vector<int> sums_;  // from 1
};

int DrawPosition(int count, int previous, Random& random) {
  const int most_tries = 10 * count;
  int pick = 0;
  random.Reseed();
  for (int tries = 0; tries < most_tries; ++tries) {
    pick = std::min(static_cast<int>(random.Draw() * count), count - 1);
    if (pick != 0 && pick != previous) break;
  }
  return pick;
}

}  // namespace

int ShuffleSelectionOnce(const std::vector<int>& slots, std::vector<int>& rows, Random& random) {
  const int count = static_cast<int>(slots.size());
  Pool pool(slots);
  int previous = 0;
  for (int item = 0; item < count; ++item) {
    const int pick = DrawPosition(count, previous, random);
    if (pick != 0) previous = pool.MoveToEnd(pick);
  }
  const std::vector<int> partners = pool.Values();
  for (std::size_t k = 0; k < slots.size(); ++k) {
    std::swap(rows[static_cast<std::size_t>(slots[k] - 1)], rows[static_cast<std::size_t>(partners[k] - 1)]);
  }
  return partners.back();
}

}  // namespace qublet
