#pragma once

#include <span>
#include <string_view>

namespace qublet {

// The genres by their number in ID3v1, from 0.
std::span<const std::string_view> GenreNames();

}  // namespace qublet
