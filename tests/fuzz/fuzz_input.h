#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qublet {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// An input cut into pieces from its front: choices, then texts, then what is left. Where it has ended there are
// zeros.
class Pieces {
 public:
  Pieces(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  std::uint8_t Byte() {
    const Piece byte = Take(1);
    return byte.empty() ? std::uint8_t{0} : byte[0];
  }
  // From 0 to `most`.
  std::size_t UpTo(std::size_t most) {
    std::size_t number = 0;
    for (std::size_t room = most; room > 0; room >>= 8) number = number << 8 | Byte();
    return most == SIZE_MAX ? number : number % (most + 1);
  }
  // A length, and so many bytes.
  std::string Text() {
    const Piece piece = Take(Byte());
    return {piece.begin(), piece.end()};
  }
  std::vector<std::uint8_t> Bytes(std::size_t length) {
    const Piece piece = Take(length);
    return {piece.begin(), piece.end()};
  }
  std::string_view Rest() const { return TextOf(rest_.data(), rest_.size()); }
  std::vector<std::uint8_t> RestBytes() const { return {rest_.begin(), rest_.end()}; }
  bool IsEmpty() const { return rest_.empty(); }

 private:
  using Piece = std::span<const std::uint8_t>;
  Piece Take(std::size_t length) {
    const Piece taken = rest_.first(std::min(length, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return taken;
  }

  Piece rest_;
};

// What holds for every input; the fuzzer keeps one for which it doesn't.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace qublet

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
