#include "playlist/shuffle.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace qublet {
namespace {

// A list that gives the value at a position and moves it to the end, up to as many times as it has values. A moved
// value leaves a gap: one bit a place says what is still there. Sums over groups of places, each over as many groups
// as the lowest bit of its number says, find a position without counting through all.
class Pool {
 public:
  explicit Pool(const std::vector<int>& values)
      : values_(values), groups_(std::bit_ceil(2 * values.size() / kGroup + 1)), sums_(groups_.size() + 1) {
    values_.reserve(2 * values.size());
    for (std::size_t place = 0; place < values.size(); ++place) groups_[place / kGroup] |= BitOf(place);
    for (std::size_t i = 1; i < sums_.size(); ++i) {
      sums_[i] += std::popcount(groups_[i - 1]);
      if (i + LowestBit(i) < sums_.size()) sums_[i + LowestBit(i)] += sums_[i];
    }
  }

  // `position` from 1.
  int MoveToEnd(int position) {
    const std::size_t place = PlaceOf(position);
    const std::size_t end = values_.size();
    values_.push_back(values_[place]);
    groups_[place / kGroup] ^= BitOf(place);
    groups_[end / kGroup] ^= BitOf(end);
    Count(place, -1);
    Count(end, 1);
    return values_.back();
  }

  std::vector<int> Values() const {
    std::vector<int> values;
    values.reserve(values_.size() / 2);
    for (std::size_t place = 0; place < values_.size(); ++place) {
      if (groups_[place / kGroup] & BitOf(place)) values.push_back(values_[place]);
    }
    return values;
  }

 private:
  using Group = std::uint16_t;
  static constexpr std::size_t kGroup = 16;  // places

  static Group BitOf(std::size_t place) { return static_cast<Group>(1U << (place % kGroup)); }
  static std::size_t LowestBit(std::size_t i) { return i & (~i + 1); }

  void Count(std::size_t place, int change) {
    for (std::size_t i = place / kGroup + 1; i < sums_.size(); i += LowestBit(i)) sums_[i] += change;
  }

  std::size_t PlaceOf(int position) const {
    std::size_t group = 0;
    for (std::size_t step = groups_.size() / 2; step > 0; step /= 2) {
      const int sum = sums_[group + step];
      const bool further = sum < position;  // no branch: it couldn't be foretold
      group += further ? step : 0;
      position -= further ? sum : 0;
    }
    unsigned bits = groups_[group];
    while (--position > 0) bits &= bits - 1;
    return group * kGroup + static_cast<std::size_t>(std::countr_zero(bits));
  }

  std::vector<int> values_;
  std::vector<Group> groups_;  // a power of two of them
  std::vector<int> sums_;      // from 1
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
