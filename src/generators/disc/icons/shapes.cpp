#include "generators/disc/icons/shapes.h"

namespace qublet::drawing {
namespace {

// Parts of a height of 1 above a head at 0, 0.
Path Head() {
  return Path::Ellipse({0, 0}, 0.185, 0.135).Turned(-22, {0, 0});
}

Path Placed(const Path& path, Point place, double height) {
  return path.Moved(place.x, place.y).Scaled(height, place);
}

}  // namespace

Path EighthNote(Point head, double height) {
  Path flag;
  flag.MoveTo({0.09, -0.86}).LineTo({0.19, -0.86}).CurveTo({0.2, -0.66}, {0.52, -0.6}, {0.4, -0.24});
  flag.CurveTo({0.42, -0.44}, {0.3, -0.52}, {0.19, -0.53}).LineTo({0.09, -0.53});
  return Placed(Head().And(Path::Box(0.075, -0.87, 0.11, 0.84)).And(flag), head, height);
}

Path BeamedNotes(Point head, double height, double apart) {
  const double x = apart / height;
  const Path beam = Path::Polygon({{0.07, -0.76}, {x + 0.18, -0.87}, {x + 0.18, -0.66}, {0.07, -0.55}});
  const Path left = Head().And(Path::Box(0.07, -0.74, 0.11, 0.7));
  const Path right = Head().Moved(x, -0.1).And(Path::Box(x + 0.07, -0.84, 0.11, 0.7));
  return Placed(left.And(right).And(beam), head, height);
}

Path Heart(Point centre, double size) {
  Path heart;
  heart.MoveTo({0, -0.27}).CurveTo({0.12, -0.56}, {0.52, -0.54}, {0.52, -0.16});
  heart.CurveTo({0.52, 0.14}, {0.2, 0.3}, {0, 0.5});
  heart.CurveTo({-0.2, 0.3}, {-0.52, 0.14}, {-0.52, -0.16}).CurveTo({-0.52, -0.54}, {-0.12, -0.56}, {0, -0.27});
  return Placed(heart, centre, size);
}

}  // namespace qublet::drawing
