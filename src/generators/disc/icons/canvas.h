#pragma once

#include <functional>
#include <vector>

#include "generators/disc/icon_file.h"
#include "generators/disc/icons/colour.h"
#include "generators/disc/icons/path.h"

namespace qublet::drawing {

// The colour at a place, in units of the drawing.
using Paint = std::function<Colour(Point)>;

// How much of each pixel is covered, row by row, from 0 to 1.
using Cover = std::vector<double>;

// A square of plain pixels, transparent at first, onto which drawings of 64 by 64 units are painted, smooth at their
// edges. The same calls give the same pixels everywhere.
class Canvas {
 public:
  explicit Canvas(int side);

  int Side() const { return side_; }

  Cover CoverOf(const Path& path) const;
  void Fill(const Cover& cover, const Paint& paint);

  IconPicture Picture() const;

 private:
  int side_;
  std::vector<Colour> pixels_;  // premultiplied
};

}  // namespace qublet::drawing
