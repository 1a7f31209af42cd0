#include <algorithm>
#include <array>
#include <cmath>

#include "generators/disc/icons/drawings.h"

namespace qublet::drawing {
namespace {

constexpr Point kMiddle{32, 32};
const double kRadius = 30;

// A view in a round frame.
class View {
 public:
  View(Sketch& sketch, Colour above, Colour below) : sketch_(sketch), frame_(Path::Circle(kMiddle, kRadius)) {
    sketch_.Fill(frame_, [=](Point p) { return Mixed(above, below, p.y / 64); });
  }
  void Add(const Path& path, Colour colour) { sketch_.FillWithin(frame_, path, Shaded(path, colour)); }
  void AddFlat(const Path& path, Colour colour) { sketch_.FillWithin(frame_, path, colour); }
  void Close(Colour colour) { sketch_.Outline(frame_, Dark(colour)); }

 private:
  Sketch& sketch_;
  Path frame_;
};

Path Swell(double y, double height, double length, double start) {
  Path swell = Path().MoveTo({0, 64});
  for (int i = 0; i <= 64; ++i) {
    const double part = (i - start) / length;
    swell.LineTo({static_cast<double>(i), y - height * std::pow(std::abs(std::cos(part * 3.14159)), 1.7)});
  }
  return swell.LineTo({64, 64});
}

void Sea(Sketch& sketch) {
  View view(sketch, Mixed(kOrange, kPink, 0.35), Mixed(kYellow, kCream, 0.4));
  view.AddFlat(Path::Circle({40, 24}, 12), Mixed(kYellow, kWhite, 0.45));
  const double foam = sketch.Small() ? 4 : 2.4;
  const Colour waves[] = {Mixed(kSky, kTeal, 0.5), Mixed(kBlue, kSky, 0.5), kBlue};
  const double lengths[] = {26, 30, 34};
  for (int i = 0; i < 3; ++i) {
    if (sketch.Small() && i == 1) continue;
    const Path wave = Swell(38 + 9 * i, 8, lengths[i], 5 + 13 * i);
    view.AddFlat(wave, Mixed(kWhite, kSky, 0.1));
    view.Add(wave.Moved(0, foam), waves[i]);
  }
  view.Close(kBlue);
}

void Mountain(Sketch& sketch) {
  View view(sketch, kSky, Mixed(kSky, kWhite, 0.75));
  if (!sketch.Small()) view.AddFlat(Path::Circle({48, 17}, 6.5), Mixed(kYellow, kWhite, 0.3));
  view.Add(Path::Polygon({{22, 60}, {47, 24}, {72, 60}}), Mixed(kViolet, kSteel, 0.45));
  view.AddFlat(Path::Polygon({{41, 32.6}, {47, 24}, {53, 32.6}, {50, 35}, {47, 32}, {44, 35.5}}), kWhite);
  view.Add(Path::Polygon({{-6, 60}, {26, 12}, {58, 60}}), Mixed(kSlate, kViolet, 0.25));
  view.AddFlat(Path::Polygon({{26, 12}, {58, 60}, {30, 60}, {34, 44}, {28, 32}}), Faded(kInk, 0.22));
  view.AddFlat(Path::Polygon({{16, 27}, {26, 12}, {36, 27}, {36, 29}, {31, 26}, {26, 33}, {21, 27}, {17, 30}}),
               kWhite);
  view.Add(Swell(52, 5, 44, 16), kGreen);
  if (!sketch.Small()) {
    for (const double x : {13.0, 20.0, 44.0, 51.0}) {
      view.AddFlat(Path::Polygon({{x - 3.4, 54}, {x, 43}, {x + 3.4, 54}}), Mixed(kGreen, kInk, 0.45));
    }
  }
  view.Close(kBlue);
}

void City(Sketch& sketch) {
  View view(sketch, Mixed(kNight, kInk, 0.45), Mixed(kViolet, kPink, 0.5));
  view.AddFlat(Path::Circle({45, 16}, 6), Mixed(kYellow, kCream, 0.5));
  if (!sketch.Small()) {
    for (const Point star : {Point{15, 16}, {24, 9}, {32, 17}, {54, 27}, {36, 7}}) {
      view.AddFlat(Path::Circle(star, 0.9), kWhite);
    }
    for (const auto& [x, top, width] :
         {std::array{5.0, 34.0, 12.0}, {20.0, 27.0, 10.0}, {39.0, 30.0, 12.0}, {50.0, 37.0, 12.0}}) {
      view.Add(Path::Box(x, top, width, 40), Mixed(kViolet, kNight, 0.5));
    }
  }
  const Colour front = Mixed(kNight, kInk, 0.55);
  const Colour window = Mixed(kYellow, kOrange, 0.15);
  for (const auto& [x, top, width] :
       {std::array{4.0, 40.0, 12.0}, {16.0, 28.0, 12.0}, {32.0, 20.0, 12.0}, {48.0, 36.0, 12.0}}) {
    view.Add(Path::Box(x, top, width, 44), front);
    if (sketch.Small()) {
      view.AddFlat(Path::Box(x + 4, top + 4, 4, 4), window);
      view.AddFlat(Path::Box(x + 4, top + 12, 4, 4), window);
      continue;
    }
    int number = static_cast<int>(x);
    for (double y = top + 3; y < 58; y += 5) {
      for (const double dx : {2.2, 6.8}) {
        if (++number % 5 != 0) view.AddFlat(Path::Box(x + dx, y, 3, 2.8, 0.4), window);
      }
    }
  }
  if (!sketch.Small()) view.AddFlat(Path::Box(37.5, 11, 1, 10), front);
  view.Close(kNight);
}

void PalmBeach(Sketch& sketch) {
  View view(sketch, kSky, Mixed(kSky, kWhite, 0.7));
  view.AddFlat(Path::Circle({47, 18}, 7), kYellow);
  view.Add(Path::Box(0, 40, 64, 24), kTeal);
  view.Add(Path::Ellipse({30, 62}, 30, 15), Mixed(kYellow, kWood, 0.35));
  Path trunk;
  trunk.MoveTo({27, 52}).CurveTo({30, 42}, {30, 34}, {27, 22}).LineTo({32, 21}).CurveTo({36, 34}, {36, 44}, {34, 53});
  view.Add(trunk, kBrown);
  for (const double degrees : {-150.0, -100.0, -42.0, 8.0, 160.0}) {
    Path frond;
    frond.MoveTo({0, 0}).CurveTo({6, -8}, {15, -8}, {21, 1}).CurveTo({15, -2}, {8, -2}, {0, 2});
    const bool left = degrees < -90 || degrees > 90;
    const Path turned =
        left ? frond.Turned(degrees < -120 || degrees > 90 ? (degrees > 90 ? -18 : 14) : 40, {0, 0}).Mirrored(0)
             : frond.Turned(degrees > 0 ? 20 : -28, {0, 0});
    view.Add(turned.Moved(29.5, 22), Mixed(kGreen, kInk, degrees > 90 || degrees == 8 ? 0.3 : 0.12));
  }
  view.Close(kBlue);
}

void Car(Sketch& sketch) {
  Path body;
  body.MoveTo({2, 44}).CurveTo({2, 34}, {6, 32}, {14, 31}).CurveTo({20, 18}, {24, 14}, {34, 14});
  body.CurveTo({44, 14}, {48, 20}, {52, 30}).CurveTo({60, 31}, {62, 36}, {62, 44}).LineTo({62, 50}).LineTo({2, 50});
  sketch.Body(body, kRed);
  Path glass;
  glass.MoveTo({20, 31}).CurveTo({24, 22}, {27, 19}, {33, 19}).CurveTo({41, 19}, {44, 24}, {47, 31});
  sketch.Fill(glass, Shaded(glass, Mixed(kSky, kWhite, 0.4)));
  sketch.Fill(Path::Box(sketch.Small() ? 32 : 33, 18, sketch.Small() ? 4 : 2.6, 14), Dark(kRed));
  if (!sketch.Small()) {
    sketch.Outline(glass.Scaled(1.04, {33, 26}), Dark(kRed));
    sketch.Fill(Path::Box(36, 35, 6, 1.8, 0.9), Dark(kRed));
    sketch.Body(Path::Box(1.5, 44.5, 61, 5.5, 2.5), kSteel);
  }
  sketch.Fill(Path::Ellipse({57.5, 38}, 3, 3.4), kYellow);
  for (const double x : {16.0, 48.0}) {
    sketch.Body(Path::Circle({x, 49}, 9.5), Mixed(kSlate, kInk, 0.3));
    sketch.Part(Path::Circle({x, 49}, 4.4), kSilver);
  }
}

void Balloon(Sketch& sketch, Point centre, double size, Colour colour) {
  sketch.Line(Path().MoveTo({centre.x, centre.y + size}).CurveTo({centre.x, 48}, {32, 50}, {32, 62}),
              sketch.Small() ? 2.5 : 1.4, kSlate);
  Path balloon;
  balloon.MoveTo({0, -1})
      .CurveTo({0.52, -1}, {0.84, -0.64}, {0.84, -0.16})
      .CurveTo({0.84, 0.4}, {0.4, 0.8}, {0.06, 0.98});
  balloon.LineTo({0.16, 1.14})
      .LineTo({-0.16, 1.14})
      .LineTo({-0.06, 0.98})
      .CurveTo({-0.4, 0.8}, {-0.84, 0.4}, {-0.84, -0.16});
  balloon.CurveTo({-0.84, -0.64}, {-0.52, -1}, {0, -1});
  const Path placed = balloon.Moved(centre.x, centre.y).Scaled(size, centre);
  sketch.Body(placed, colour);
  sketch.Glow(placed, {centre.x - 0.32 * size, centre.y - 0.4 * size}, 0.42 * size, Faded(kWhite, 0.85));
}

void Balloons(Sketch& sketch) {
  Balloon(sketch, {15, 25}, 15, kSky);
  Balloon(sketch, {49, 25}, 15, kYellow);
  Balloon(sketch, {32, 19}, 17, kRed);
}

void Gift(Sketch& sketch) {
  const double pen = sketch.Pen();
  for (const bool right : {false, true}) {
    Path loop;
    loop.MoveTo({32, 20}).CurveTo({24, 20}, {10, 20}, {12, 10}).CurveTo({14, 1}, {28, 4}, {32, 20});
    if (right) loop = loop.Mirrored(32);
    sketch.Body(loop, kOrange);
  }
  sketch.Body(Path::Box(8, 30, 48, 32, 3), kViolet);
  sketch.Fill(Path::Box(28, 32, 8, 30 - pen), Shaded(Path::Box(28, 32, 8, 30), kYellow));
  sketch.Body(Path::Box(4, 18, 56, 14, 3), Mixed(kViolet, kWhite, 0.12));
  sketch.Fill(Path::Box(28, 18 + pen, 8, 14 - 2 * pen), kYellow);
}

void DiscoBall(Sketch& sketch) {
  const Point centre{32, 36};
  const double radius = 26;
  sketch.Line(Path().MoveTo({32, 1}).LineTo({32, 12}), sketch.Small() ? 4 : 2.4, kSlate);
  const Path ball = Path::Circle(centre, radius);
  sketch.Fill(ball, Mixed(Dark(kViolet), kViolet, 0.25));
  const Colour tints[] = {kSilver, kSky, kPink, kWhite, kViolet, kSilver, kSky, kYellow, kWhite, kPink, kViolet};
  if (sketch.Small()) {
    for (int i = 0; i < 49; ++i) {
      const Path tile = Path::Box(4 + 8 * (i % 7), 8 + 8 * (i / 7), 8, 8);
      sketch.FillWithin(ball, tile, Mixed(tints[i * 7 % 11], kNight, 0.07 * (i / 7)));
    }
    sketch.Outline(ball, Dark(kViolet));
    return;
  }
  const int rows = 9;
  const double gap = 0.55;
  const double half = 3.14159265 / 2;
  int number = 0;
  for (int row = 0; row < rows; ++row) {
    const double above = -half + 2 * half * row / rows, below = -half + 2 * half * (row + 1) / rows;
    const double wide = std::cos((above + below) / 2) * radius;
    for (int column = 0; column < rows; ++column) {
      const double left = std::sin(-half + 2 * half * column / rows) * wide;
      const double right = std::sin(-half + 2 * half * (column + 1) / rows) * wide;
      const double top = std::sin(above) * radius, bottom = std::sin(below) * radius;
      const Path tile = Path::Box(centre.x + left + gap, centre.y + top + gap, std::max(right - left - 2 * gap, 0.2),
                                  std::max(bottom - top - 2 * gap, 0.2));
      number = (number * 7 + 3 * row + column + 5) % 11;
      const double shade = 0.38 * (row + column * 0.6) / rows;
      sketch.FillWithin(ball, tile, Mixed(Mixed(tints[number], kWhite, 0.15), kNight, shade));
    }
  }
  sketch.Outline(ball, Dark(kViolet));
  sketch.Glow(ball, {23, 26}, 13, Faded(kWhite, 0.8));
  for (const auto& [x, y, size] : {std::array{12.0, 13.0, 7.0}, {54.0, 20.0, 5.5}, {52.0, 55.0, 6.5}}) {
    sketch.Fill(Path::Star({x, y}, 4, size, size * 0.24), kYellow);
  }
}

}  // namespace

std::span<const Drawing> Places() {
  static constexpr Drawing kPlaces[] = {Sea, Mountain, City, PalmBeach, Car, Balloons, Gift, DiscoBall};
  return kPlaces;
}

}  // namespace qublet::drawing
