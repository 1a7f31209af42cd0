#pragma once

#include <span>
#include <vector>

#include "generators/disc/icons/sketch.h"

namespace qublet::drawing {

using Drawing = void (*)(Sketch&);

// Each group in a source of its own, in the order in which the icons are numbered.
std::span<const Drawing> Discs();
std::span<const Drawing> Devices();
std::span<const Drawing> Notes();
std::span<const Drawing> Instruments();
std::span<const Drawing> Nature();
std::span<const Drawing> Places();

// All of them in this order.
inline std::vector<Drawing> Drawings() {
  std::vector<Drawing> all;
  for (const auto group : {Discs(), Devices(), Notes(), Instruments(), Nature(), Places()}) {
    all.insert(all.end(), group.begin(), group.end());
  }
  return all;
}

}  // namespace qublet::drawing
