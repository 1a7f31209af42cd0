#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace qublet {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// What holds for every input; the fuzzer keeps one for which it doesn't.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace qublet

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
