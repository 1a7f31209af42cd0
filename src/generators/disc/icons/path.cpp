#include "generators/disc/icons/path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace qublet::drawing {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

Point OnCircle(Point centre, double radius, double degrees) {
  const double angle = degrees / 360 * kTurn;
  return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

double AreaOf(const Path::Piece& piece) {
  double area = 0;
  for (std::size_t i = 0; i < piece.size(); ++i) {
    const Point& a = piece[i];
    const Point& b = piece[(i + 1) % piece.size()];
    area += a.x * b.y - b.x * a.y;
  }
  return area / 2;
}

// Pieces that shall count as one must go round the same way.
void MakeClockwise(Path::Piece& piece) {
  if (AreaOf(piece) < 0) std::ranges::reverse(piece);
}

Path::Piece Bar(Point a, Point b, double width) {
  const double length = std::hypot(b.x - a.x, b.y - a.y);
  const double x = (b.y - a.y) / length * width / 2;
  const double y = (a.x - b.x) / length * width / 2;
  Path::Piece bar{{a.x + x, a.y + y}, {b.x + x, b.y + y}, {b.x - x, b.y - y}, {a.x - x, a.y - y}};
  MakeClockwise(bar);
  return bar;
}

template <typename Change>
Path Changed(const Path& path, Change change) {
  Path result;
  for (const Path::Piece& piece : path.Pieces()) {
    bool first = true;
    for (const Point& point : piece) {
      first ? result.MoveTo(change(point)) : result.LineTo(change(point));
      first = false;
    }
  }
  return result;
}

}  // namespace

Path Path::Circle(Point centre, double radius) {
  return Path().Arc(centre, radius, 0, 360);
}

Path Path::Ellipse(Point centre, double across, double down) {
  return Changed(Circle({}, 1), [&](Point p) { return Point{centre.x + p.x * across, centre.y + p.y * down}; });
}

Path Path::Box(double x, double y, double width, double height, double corner) {
  if (corner <= 0) return Polygon({{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}});
  Path box;
  box.Arc({x + width - corner, y + corner}, corner, -90, 0);
  box.Arc({x + width - corner, y + height - corner}, corner, 0, 90);
  box.Arc({x + corner, y + height - corner}, corner, 90, 180);
  box.Arc({x + corner, y + corner}, corner, 180, 270);
  return box;
}

Path Path::Polygon(std::span<const Point> points) {
  Path path;
  path.pieces_.emplace_back(points.begin(), points.end());
  return path;
}

Path Path::Star(Point centre, int points, double outer, double inner) {
  Piece corners;
  for (int i = 0; i < 2 * points; ++i) {
    corners.push_back(OnCircle(centre, i % 2 == 0 ? outer : inner, -90 + 180.0 * i / points));
  }
  return Polygon(corners);
}

Path Path::Wedge(Point centre, double inner, double outer, double from, double to) {
  Path wedge;
  return wedge.Arc(centre, outer, from, to).Arc(centre, inner, to, from);
}

Path& Path::MoveTo(Point to) {
  pieces_.push_back({to});
  return *this;
}

Path& Path::LineTo(Point to) {
  if (pieces_.empty()) return MoveTo(to);
  pieces_.back().push_back(to);
  return *this;
}

Path& Path::CurveTo(Point first, Point second, Point to) {
  constexpr int kLines = 20;
  const Point start = pieces_.back().back();
  for (int i = 1; i <= kLines; ++i) {
    const double t = static_cast<double>(i) / kLines;
    const double s = 1 - t;
    const double a = s * s * s, b = 3 * s * s * t, c = 3 * s * t * t, d = t * t * t;
    LineTo(
        {a * start.x + b * first.x + c * second.x + d * to.x, a * start.y + b * first.y + c * second.y + d * to.y});
  }
  return *this;
}

Path& Path::Arc(Point centre, double radius, double from, double to) {
  const int lines = std::max(1, static_cast<int>(std::ceil(std::abs(to - from) / 5)));
  for (int i = 0; i <= lines; ++i) LineTo(OnCircle(centre, radius, from + (to - from) * i / lines));
  return *this;
}

Path Path::Moved(double x, double y) const {
  return Changed(*this, [&](Point p) { return Point{p.x + x, p.y + y}; });
}

Path Path::Scaled(double factor, Point centre) const {
  return Changed(*this, [&](Point p) {
    return Point{centre.x + (p.x - centre.x) * factor, centre.y + (p.y - centre.y) * factor};
  });
}

Path Path::Turned(double degrees, Point centre) const {
  const double c = std::cos(degrees / 360 * kTurn);
  const double s = std::sin(degrees / 360 * kTurn);
  return Changed(*this, [&](Point p) {
    const double x = p.x - centre.x, y = p.y - centre.y;
    return Point{centre.x + x * c - y * s, centre.y + x * s + y * c};
  });
}

Path Path::Mirrored(double x) const {
  return Changed(*this, [&](Point p) { return Point{2 * x - p.x, p.y}; });
}

Path Path::And(const Path& other) const {
  Path both = *this;
  both.pieces_.insert(both.pieces_.end(), other.pieces_.begin(), other.pieces_.end());
  for (Piece& piece : both.pieces_) MakeClockwise(piece);
  return both;
}

Path Path::Without(const Path& hole) const {
  Path rest = *this;
  for (Piece& piece : rest.pieces_) MakeClockwise(piece);
  for (Piece piece : hole.pieces_) {
    MakeClockwise(piece);
    std::ranges::reverse(piece);
    rest.pieces_.push_back(std::move(piece));
  }
  return rest;
}

Path Path::Stroked(double width, bool closed) const {
  Path stroke;
  for (const Piece& piece : pieces_) {
    for (std::size_t i = 0; i < piece.size(); ++i) {
      const Point& from = piece[i];
      const Point& to = piece[(i + 1) % piece.size()];
      stroke.pieces_.push_back(Circle(from, width / 2).pieces_[0]);
      const bool last = i + 1 == piece.size();
      if ((last && !closed) || std::hypot(to.x - from.x, to.y - from.y) < 1e-9) continue;
      stroke.pieces_.push_back(Bar(from, to, width));
    }
  }
  return stroke;
}

}  // namespace qublet::drawing
