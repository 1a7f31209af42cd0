#include <algorithm>
#include <cmath>
#include <numbers>

#include "generators/disc/icons/drawings.h"
#include "generators/disc/icons/shapes.h"

namespace qublet::drawing {
namespace {

constexpr Point kMiddle{32, 32};
constexpr double kRadius = 30;

// Light that lies on the grooves in two opposite wedges; on silver it is broken into colours.
Paint Sheen(Point centre, double radius, Colour colour, bool rainbow) {
  return [=](Point p) {
    const double angle = std::atan2(p.y - centre.y, p.x - centre.x);
    const double wedge = std::pow(std::abs(std::cos(angle - 0.95)), 10);
    const double second = std::pow(std::abs(std::cos(angle + 0.75)), 6);
    const double out = std::clamp(std::hypot(p.x - centre.x, p.y - centre.y) / radius, 0.0, 1.0);
    Colour shown = Mixed(Mixed(colour, kWhite, 0.12), Shadowed(colour, 0.2), out);
    if (rainbow) {
      const double hue = (out - 0.3) * 5.4 + 0.4;
      const Colour broken{0.62 + 0.38 * std::cos(hue), 0.62 + 0.38 * std::cos(hue - 2.1),
                          0.66 + 0.34 * std::cos(hue - 4.2)};
      shown = Mixed(shown, broken, 0.6 * second);
    } else {
      shown = Mixed(shown, Shadowed(colour, 1), 0.5 * second);
    }
    return Mixed(shown, kWhite, (rainbow ? 0.85 : 0.55) * wedge);
  };
}

void Disc(Sketch& sketch, Point centre, double radius, Colour colour, bool rainbow = false) {
  const Path hole = Path::Circle(centre, radius * 0.14);
  const Path disc = Path::Circle(centre, radius).Without(hole);
  sketch.Body(disc, Sheen(centre, radius, colour, rainbow), Dark(colour));
  const Path hub = Path::Circle(centre, radius * 0.36).Without(hole);
  if (sketch.Small()) {
    sketch.Fill(hub, Mixed(colour, kWhite, 0.75));
    sketch.Outline(hub, Mixed(colour, kInk, 0.35));
    return;
  }
  sketch.Fill(hub, Mixed(colour, kWhite, 0.7));
  sketch.Outline(hub, Mixed(colour, kInk, 0.5));
  sketch.Fill(Path::Circle(centre, radius * 0.27).Without(hole), Mixed(colour, kWhite, 0.35));
  sketch.Outline(Path::Circle(centre, radius * 0.14 + sketch.Pen()).Without(hole), Dark(colour));
}

void SilverDisc(Sketch& sketch) {
  Disc(sketch, kMiddle, kRadius, kSilver, true);
}
void BlueDisc(Sketch& sketch) {
  Disc(sketch, kMiddle, kRadius, kBlue);
}
void GreenDisc(Sketch& sketch) {
  Disc(sketch, kMiddle, kRadius, kGreen);
}
void GoldenDisc(Sketch& sketch) {
  Disc(sketch, kMiddle, kRadius, kYellow);
}
void RedDisc(Sketch& sketch) {
  Disc(sketch, kMiddle, kRadius, kRed);
}
void VioletDisc(Sketch& sketch) {
  Disc(sketch, kMiddle, kRadius, kViolet);
}

void JewelCase(Sketch& sketch) {
  const Path box = Path::Box(4, 4, 56, 56, 4);
  sketch.Body(box, Mixed(kSky, kWhite, 0.45));
  const Path spine = Path::Box(4 + sketch.Pen(), 4 + sketch.Pen(), 7, 56 - 2 * sketch.Pen());
  sketch.FillWithin(box, spine, Dark(kSky));
  Disc(sketch, {37, 32}, sketch.Small() ? 19 : 20, kSilver, true);
  if (sketch.Small()) return;
  const Path light = Path::Polygon({{14, 40}, {44, 6}, {56, 6}, {14, 54}});
  sketch.FillWithin(Path::Box(13, 6, 45, 52, 2), light, Faded(kWhite, 0.25));
  for (const double y : {14.0, 46.0}) sketch.Fill(Path::Box(6.5, y, 3.5, 5, 1), Faded(kWhite, 0.5));
}

void DiscWithNote(Sketch& sketch) {
  Disc(sketch, {28, 28}, 26, kSilver, true);
  sketch.Sticker(EighthNote({40, 52}, sketch.Small() ? 34 : 36), 0, kOrange);
}

void DiscInSleeve(Sketch& sketch) {
  Disc(sketch, {38, 26}, 24, kTeal);
  const Path sleeve = Path::Box(4, 16, 44, 44, 3);
  sketch.Body(sleeve, kCream);
  if (sketch.Small()) {
    sketch.Fill(Path::Box(12, 24, 28, 20), kOrange);
    return;
  }
  const Path picture = Path::Box(10, 22, 32, 24, 2);
  sketch.Part(picture, kOrange);
  sketch.FillWithin(picture, Path::Circle({26, 50}, 16), Mixed(kRed, kOrange, 0.3));
  sketch.FillWithin(picture, Path::Circle({34, 30}, 4), kYellow);
  for (const double y : {49.5, 53.5}) sketch.Fill(Path::Box(10, y, y < 50 ? 24 : 16, 1.8, 0.9), kSteel);
}

// A disc that lies flat, with its edge.
void FlatDisc(Sketch& sketch, double y, Colour colour) {
  const double down = 11;
  Path edge;
  for (int i = 0; i <= 36; ++i) {
    const double angle = std::numbers::pi * i / 36;
    edge.LineTo({32 + 28 * std::cos(angle), y + 8 + down * std::sin(angle)});
  }
  for (int i = 36; i <= 72; ++i) {
    const double angle = std::numbers::pi * i / 36;
    edge.LineTo({32 + 28 * std::cos(angle), y + down * std::sin(angle)});
  }
  sketch.Body(edge, colour);
}

void StackOfDiscs(Sketch& sketch) {
  FlatDisc(sketch, 42, kViolet);
  FlatDisc(sketch, 32, kSky);
  FlatDisc(sketch, 22, kGreen);
  FlatDisc(sketch, 12, kYellow);
  const Path hole = Path::Ellipse({32, 13}, 6, 2.8);
  sketch.Fill(Path::Ellipse({32, 13}, 12, 5), Mixed(kYellow, kWhite, 0.7));
  sketch.Fill(hole, Dark(kYellow));
}

void VinylRecord(Sketch& sketch) {
  const Colour black = Mixed(kSlate, kInk, 0.45);
  sketch.Body(Path::Circle(kMiddle, kRadius), Sheen(kMiddle, kRadius, black, false), Dark(black));
  if (!sketch.Small()) {
    for (const double radius : {26.0, 22.5, 19.0, 15.5}) {
      const Path ring = Path::Circle(kMiddle, radius).Without(Path::Circle(kMiddle, radius - 0.7));
      sketch.Fill(ring, Faded(kInk, 0.5));
    }
  }
  sketch.Part(Path::Circle(kMiddle, 12), kRed);
  if (!sketch.Small()) sketch.Fill(Path::Circle(kMiddle, 6).Without(Path::Circle(kMiddle, 5)), Faded(kCream, 0.8));
  sketch.Fill(Path::Circle(kMiddle, sketch.Small() ? 3.5 : 2.2), kCream);
}

void RecordPlayer(Sketch& sketch) {
  sketch.Body(Path::Box(3, 8, 58, 48, 5), kWood);
  const Colour black = Mixed(kSlate, kInk, 0.45);
  const Point centre{26, 32};
  sketch.Body(Path::Circle(centre, 18), Sheen(centre, 18, black, false), Dark(black));
  sketch.Part(Path::Circle(centre, 7), kTeal);
  sketch.Fill(Path::Circle(centre, sketch.Small() ? 2.5 : 1.5), kCream);
  const Path arm = Path().MoveTo({52, 17}).LineTo({52, 36}).LineTo({40, 46});
  if (sketch.Small()) {
    sketch.Line(arm, 4, kWhite);
    return;
  }
  sketch.Body(Path::Circle({52, 17}, 5.5), kSilver);
  sketch.Rod(arm, 4.6, kSilver);
  sketch.Body(Path::Box(36, 42, 9, 6, 1.5).Turned(-40, {40.5, 45}), kSlate);
  sketch.Body(Path::Circle({53, 48}, 3.6), kCream);
}

void Cassette(Sketch& sketch) {
  sketch.Body(Path::Box(3, 11, 58, 42, 5), kSlate);
  const Path label = Path::Box(9, 17, 46, 25, 3);
  sketch.Part(label, kCream);
  sketch.FillWithin(label, Path::Box(9, 31, 46, 5.5), kOrange);
  sketch.FillWithin(label, Path::Box(9, 36.5, 46, 5.5), kRed);
  sketch.Body(Path::Box(17, 24, 30, 13, 6.5), Mixed(kSlate, kInk, 0.5));
  for (const double x : {23.5, 40.5}) {
    sketch.Fill(Path::Circle({x, 30.5}, sketch.Small() ? 4 : 4.4), kWhite);
    if (!sketch.Small()) sketch.Fill(Path::Star({x, 30.5}, 6, 3, 1.8), kSlate);
  }
  sketch.Body(Path::Polygon({{18, 44}, {46, 44}, {50, 53}, {14, 53}}), kSteel);
  if (sketch.Small()) return;
  for (const double y : {20.5, 24.0})
    sketch.Fill(Path::Box(13, y - 0.6, 38, 1, 0.5), Faded(kSteel, y < 22 ? 0.8 : 0));
  for (const double x : {7.0, 57.0}) sketch.Fill(Path::Circle({x, 48.5}, 1.5), kSilver);
}

}  // namespace

std::span<const Drawing> Discs() {
  static constexpr Drawing kDiscs[] = {SilverDisc,  BlueDisc,     GreenDisc,    GoldenDisc,   RedDisc,
                                       VioletDisc,  JewelCase,    DiscWithNote, DiscInSleeve, StackOfDiscs,
                                       VinylRecord, RecordPlayer, Cassette};
  return kDiscs;
}

}  // namespace qublet::drawing
