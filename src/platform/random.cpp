#include "platform/random.h"

#include <chrono>

namespace qublet {
namespace {

// One step of SplitMix64: any two states, however near, give unlike numbers.
std::uint64_t Mixed(std::uint64_t bits) {
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
  return bits ^ (bits >> 31);
}

}  // namespace

double SystemRandom::Draw() {
  state_ += 0x9E3779B97F4A7C15;
  return static_cast<double>(Mixed(state_) >> 11) * 0x1p-53;
}

void SystemRandom::Reseed() {
  const auto ticks = std::chrono::high_resolution_clock::now().time_since_epoch().count();
  // Two that are made within one tick of a slow clock are told apart by their places.
  state_ += Mixed(static_cast<std::uint64_t>(ticks)) ^ Mixed(reinterpret_cast<std::uintptr_t>(this));
}

}  // namespace qublet
