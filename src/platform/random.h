#pragma once

#include <cstdint>

namespace qublet {

// Chance, handed to whoever needs it.
class Random {
 public:
  virtual ~Random() = default;
  // A number from 0 to just below 1.
  virtual double Draw() = 0;
  // Stirs the present moment in: what follows can't be told from what came before.
  virtual void Reseed() = 0;
};

// Draws are not alike even when no time passes between two reseedings. Not for secrets.
class SystemRandom : public Random {
 public:
  SystemRandom() { Reseed(); }
  double Draw() override;
  void Reseed() override;

 private:
  std::uint64_t state_ = 0;
};

}  // namespace qublet
