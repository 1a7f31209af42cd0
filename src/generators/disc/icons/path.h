#pragma once

#include <span>
#include <vector>

namespace qublet::drawing {

// A place on a drawing of 64 by 64 units, whatever number of pixels it is painted in; y goes down.
struct Point {
  double x = 0;
  double y = 0;
};

// An outline of closed pieces, every curve already cut into short lines. What it holds is decided by the nonzero
// rule.
class Path {
 public:
  using Piece = std::vector<Point>;

  Path() = default;

  static Path Circle(Point centre, double radius);
  static Path Ellipse(Point centre, double across, double down);  // half its width and half its height
  static Path Box(double x, double y, double width, double height, double corner = 0);
  static Path Polygon(std::span<const Point> points);
  static Path Polygon(std::initializer_list<Point> points) {
    return Polygon(std::span(points.begin(), points.size()));
  }
  // Its corners lie alternately on two circles, the first one straight above the centre.
  static Path Star(Point centre, int points, double outer, double inner);
  // Part of a ring; degrees clockwise from three o'clock.
  static Path Wedge(Point centre, double inner, double outer, double from, double to);

  Path& MoveTo(Point to);
  Path& LineTo(Point to);
  Path& CurveTo(Point first, Point second, Point to);
  // Clockwise for to > from.
  Path& Arc(Point centre, double radius, double from, double to);

  Path Moved(double x, double y) const;
  Path Scaled(double factor, Point centre) const;
  Path Turned(double degrees, Point centre) const;
  // Its mirror image to the left and right of a line straight down.
  Path Mirrored(double x) const;
  Path And(const Path& other) const;
  // A hole must not overlap what isn't its frame.
  Path Without(const Path& hole) const;
  // What a round pen of that width paints that follows the lines, and closes each piece or leaves it open.
  Path Stroked(double width, bool closed) const;

  const std::vector<Piece>& Pieces() const { return pieces_; }

 private:
  std::vector<Piece> pieces_;
};

}  // namespace qublet::drawing
