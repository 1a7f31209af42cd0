#include "generators/disc/icons/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace qublet::drawing {
namespace {

constexpr double kUnits = 64;
constexpr int kLinesPerPixel = 16;

struct Crossing {
  double x = 0;  // pixels
  int winding = 0;
};

using Crossings = std::vector<std::vector<Crossing>>;

// Where an edge crosses the middle of each line that a row of pixels is cut into.
void AddEdge(Crossings& lines, Point from, Point to) {
  if (from.y == to.y) return;
  const int winding = from.y < to.y ? 1 : -1;
  if (winding < 0) std::swap(from, to);
  const int count = static_cast<int>(lines.size());
  const int first = std::clamp(static_cast<int>(std::ceil(from.y - 0.5)), 0, count);
  const int end = std::clamp(static_cast<int>(std::ceil(to.y - 0.5)), 0, count);
  for (int line = first; line < end; ++line) {
    const double part = (line + 0.5 - from.y) / (to.y - from.y);
    lines[line].push_back({from.x + (to.x - from.x) * part, winding});
  }
}

void CoverSpan(double* row, int side, double from, double to) {
  from = std::clamp<double>(from, 0, side);
  to = std::clamp<double>(to, 0, side);
  for (int x = static_cast<int>(from); x < side && x < to; ++x) {
    row[x] += (std::min<double>(to, x + 1) - std::max<double>(from, x)) / kLinesPerPixel;
  }
}

void CoverLine(double* row, int side, std::vector<Crossing>& crossings) {
  std::ranges::stable_sort(crossings, {}, &Crossing::x);
  int winding = 0;
  double from = 0;
  for (const Crossing& crossing : crossings) {
    if (winding == 0) from = crossing.x;
    winding += crossing.winding;
    if (winding == 0) CoverSpan(row, side, from, crossing.x);
  }
}

std::uint32_t Byte(double part) {
  return static_cast<std::uint32_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

}  // namespace

Canvas::Canvas(int side) : side_(side), pixels_(side * side, Colour{0, 0, 0, 0}) {}

Cover Canvas::CoverOf(const Path& path) const {
  const double scale = side_ / kUnits;
  Crossings lines(side_ * kLinesPerPixel);
  for (const Path::Piece& piece : path.Pieces()) {
    for (std::size_t i = 0; i < piece.size(); ++i) {
      const Point& a = piece[i];
      const Point& b = piece[(i + 1) % piece.size()];
      AddEdge(lines, {a.x * scale, a.y * scale * kLinesPerPixel}, {b.x * scale, b.y * scale * kLinesPerPixel});
    }
  }
  Cover cover(side_ * side_);
  for (int line = 0; line < side_ * kLinesPerPixel; ++line) {
    CoverLine(&cover[line / kLinesPerPixel * side_], side_, lines[line]);
  }
  return cover;
}

void Canvas::Fill(const Cover& cover, const Paint& paint) {
  for (int y = 0; y < side_; ++y) {
    for (int x = 0; x < side_; ++x) {
      const double covered = std::min(cover[y * side_ + x], 1.0);
      if (covered <= 0) continue;
      const Colour colour = paint({(x + 0.5) * kUnits / side_, (y + 0.5) * kUnits / side_});
      const double alpha = colour.alpha * covered;
      Colour& pixel = pixels_[y * side_ + x];
      pixel = {pixel.red * (1 - alpha) + colour.red * alpha, pixel.green * (1 - alpha) + colour.green * alpha,
               pixel.blue * (1 - alpha) + colour.blue * alpha, pixel.alpha * (1 - alpha) + alpha};
    }
  }
}

IconPicture Canvas::Picture() const {
  IconPicture picture{side_, side_, {}};
  for (const Colour& pixel : pixels_) {
    const std::uint32_t alpha = Byte(pixel.alpha);
    const auto part = [&](double premultiplied) { return Byte(premultiplied / pixel.alpha); };
    picture.pixels.push_back(
        alpha == 0 ? 0 : alpha << 24 | part(pixel.red) << 16 | part(pixel.green) << 8 | part(pixel.blue));
  }
  return picture;
}

}  // namespace qublet::drawing
