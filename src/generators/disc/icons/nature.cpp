#include <cmath>

#include "generators/disc/icons/drawings.h"
#include "generators/disc/icons/shapes.h"

namespace qublet::drawing {
namespace {

constexpr Point kMiddle{32, 32};

void StarSign(Sketch& sketch) {
  const double round = sketch.Small() ? 2 : 6;
  sketch.Sticker(Path::Star({32, 34}, 5, sketch.Small() ? 27 : 26, sketch.Small() ? 12 : 12.5), round, kYellow);
}

void HeartSign(Sketch& sketch) {
  const Path heart = Heart({32, 31}, 57);
  sketch.Body(heart, kRed);
  sketch.Glow(heart, {20, 20}, 13, Faded(kWhite, sketch.Small() ? 0.5 : 0.7));
}

void Sun(Sketch& sketch) {
  Path rays;
  for (int i = 0; i < 8; ++i) {
    const Path ray = sketch.Small() ? Path::Box(30, 1, 4, 9) : Path::Polygon({{27.5, 14}, {32, 4}, {36.5, 14}});
    rays = rays.And(ray.Turned(45 * i, kMiddle));
  }
  if (sketch.Small()) {
    sketch.Fill(rays, kOrange);
  } else {
    sketch.Sticker(rays, 2, kOrange);
  }
  const Path face = Path::Circle(kMiddle, sketch.Small() ? 18 : 17);
  sketch.Body(face, kYellow);
}

// What is left of a disc when a smaller one lies on it.
Path Crescent(Point a, double r, Point b, double s) {
  const double apart = std::hypot(b.x - a.x, b.y - a.y);
  const double direction = std::atan2(b.y - a.y, b.x - a.x) * 180 / 3.14159265358979;
  const double at_a = std::acos((apart * apart + r * r - s * s) / (2 * apart * r)) * 180 / 3.14159265358979;
  const double at_b = std::acos((apart * apart + s * s - r * r) / (2 * apart * s)) * 180 / 3.14159265358979;
  Path crescent;
  crescent.Arc(a, r, direction + at_a, direction + 360 - at_a);
  return crescent.Arc(b, s, direction + 180 + at_b, direction + 180 - at_b);
}

void Moon(Sketch& sketch) {
  sketch.Sticker(Crescent({29, 34}, 25, {42, 24}, 20), 1.5, Mixed(kYellow, kCream, 0.35));
  sketch.Sticker(Path::Star({47, 21}, 5, sketch.Small() ? 9 : 10, 4.5), sketch.Small() ? 0 : 2, kSky);
}

void Flame(Sketch& sketch) {
  Path outer;
  outer.MoveTo({36, 2}).CurveTo({38, 16}, {56, 22}, {55, 41}).CurveTo({54, 54}, {44, 62}, {32, 62});
  outer.CurveTo({19, 62}, {9, 53}, {9, 40})
      .CurveTo({9, 31}, {14, 25}, {18, 19})
      .CurveTo({19, 25}, {21, 28}, {25, 29});
  outer.CurveTo({26, 18}, {28, 9}, {36, 2});
  sketch.Body(outer, Mixed(kRed, kOrange, 0.35));
  Path middle;
  middle.MoveTo({36, 24}).CurveTo({37, 34}, {47, 36}, {46, 46}).CurveTo({45, 54}, {39, 58}, {32, 58});
  middle.CurveTo({24, 58}, {18, 53}, {18, 45})
      .CurveTo({18, 39}, {21, 37}, {23, 35})
      .CurveTo({25, 38}, {26, 39}, {29, 39});
  middle.CurveTo({29, 33}, {31, 29}, {36, 24});
  sketch.Part(middle, Mixed(kOrange, kYellow, 0.7));
  if (sketch.Small()) return;
  Path heart;
  heart.MoveTo({33, 43}).CurveTo({34, 48}, {39, 48}, {38, 53}).CurveTo({37, 57}, {27, 57}, {26, 52});
  heart.CurveTo({26, 48}, {32, 48}, {33, 43});
  sketch.Part(heart, kCream);
}

void Leaf(Sketch& sketch) {
  const Path stalk = Path().MoveTo({7.5, 57.5}).CurveTo({11, 53}, {16, 48}, {20, 44});
  sketch.Small() ? sketch.Line(stalk, 5, Shadowed(kGreen, 1)) : sketch.Rod(stalk, 5.6, kGreen);
  Path leaf;
  leaf.MoveTo({60, 4}).CurveTo({62, 30}, {56, 54}, {30, 54}).CurveTo({16, 54}, {10, 44}, {12, 34});
  leaf.CurveTo({15, 14}, {38, 12}, {60, 4});
  sketch.Body(leaf, kGreen);
  const Colour vein = Mixed(kGreen, kInk, 0.45);
  sketch.Line(Path().MoveTo({18, 46}).CurveTo({28, 36}, {40, 24}, {50, 15}), sketch.Small() ? 3 : 2, vein);
  if (sketch.Small()) return;
  for (const double part : {0.2, 0.45, 0.7}) {
    const Point from{18 + 32 * part, 46 - 31 * part};
    const double length = 13 - 8 * part;
    sketch.Line(Path().MoveTo(from).CurveTo({from.x + 3, from.y}, {from.x + length, from.y + 1},
                                            {from.x + length, from.y + 3}),
                1.4, vein);
    sketch.Line(Path().MoveTo(from).CurveTo({from.x, from.y - 3}, {from.x - 1, from.y - length},
                                            {from.x - 3, from.y - length}),
                1.4, vein);
  }
}

void Snowflake(Sketch& sketch) {
  const double reach = 27;
  const double width = sketch.Small() ? 4.5 : 4;
  Path arms;
  for (int i = 0; i < 6; ++i) {
    Path arm = Path().MoveTo(kMiddle).LineTo({32, 32 - reach});
    const double at = sketch.Small() ? 32 - reach + 9 : 32 - reach + 10;
    arm.MoveTo({24.5, at - 6}).LineTo({32, at}).LineTo({39.5, at - 6});
    if (!sketch.Small()) arm.MoveTo({27, at + 4}).LineTo({32, at + 8.5}).LineTo({37, at + 4});
    arms = arms.And(arm.Turned(60 * i, kMiddle));
  }
  if (!sketch.Small()) sketch.Fill(arms.Stroked(width + 2 * sketch.Pen(), false), Dark(kSky));
  const Path lines = arms.Stroked(width, false);
  sketch.Fill(lines,
              Shaded(Path::Circle(kMiddle, 30), sketch.Small() ? Mixed(kSky, kInk, 0.1) : Mixed(kSky, kWhite, 0.3)));
}

void Cloud(Sketch& sketch, Point place, double size) {
  const Path cloud = Path::Circle({-0.5, 0}, 0.45)
                         .And(Path::Circle({0.05, -0.25}, 0.6))
                         .And(Path::Circle({0.6, 0.05}, 0.4))
                         .And(Path::Box(-0.5, 0, 1.1, 0.45))
                         .Moved(place.x, place.y)
                         .Scaled(size, place);
  sketch.Sticker(cloud, 0, Mixed(kWhite, kSilver, 0.2));
}

void Rainbow(Sketch& sketch) {
  const Colour colours[] = {kRed, kOrange, kYellow, kGreen, kBlue};
  const int count = 5;
  const double outer = 30, width = sketch.Small() ? 4 : 4.2;
  const Path bow = Path::Wedge({32, 46}, outer - count * width - 1.5, outer + (sketch.Small() ? 0 : 1.5), 180, 360);
  if (!sketch.Small()) sketch.Fill(bow, kInk);
  for (int i = 0; i < count; ++i) {
    sketch.Part(Path::Wedge({32, 46}, outer - (i + 1) * width, outer - i * width, 180, 360), colours[i]);
  }
  const double size = sketch.Small() ? 11 : 12.5;
  Cloud(sketch, {14, 49}, size);
  Cloud(sketch, {49, 49}, size);
}

void Flower(Sketch& sketch) {
  for (int i = 0; i < 6; ++i) {
    const Path petal = Path::Ellipse({32, 15}, 10.5, 13).Turned(60 * i + 30, kMiddle);
    sketch.Small() ? sketch.Body(petal, kPink) : sketch.Body(petal, i % 2 == 0 ? kPink : Mixed(kPink, kWhite, 0.12));
  }
  if (!sketch.Small()) {
    for (int i = 0; i < 6; ++i) {
      sketch.Fill(Path::Ellipse({32, 19}, 1.4, 6).Turned(60 * i + 30, kMiddle), Faded(kRed, 0.5));
    }
  }
  sketch.Body(Path::Circle(kMiddle, sketch.Small() ? 10 : 9.5), kYellow);
}

}  // namespace

std::span<const Drawing> Nature() {
  static constexpr Drawing kNature[] = {StarSign, HeartSign, Sun, Moon, Flame, Leaf, Snowflake, Rainbow, Flower};
  return kNature;
}

}  // namespace qublet::drawing
