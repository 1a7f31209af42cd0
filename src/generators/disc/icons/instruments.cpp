#include <cmath>

#include "generators/disc/icons/drawings.h"

namespace qublet::drawing {
namespace {

void Guitar(Sketch& sketch) {
  const auto turned = [](const Path& path) { return path.Turned(40, {32, 32}).Moved(-1, 0.5).Scaled(0.97, {0, 64}); };
  const double pen = sketch.Pen();
  const Colour neck = sketch.Small() ? kWood : kBrown;
  sketch.Body(turned(Path::Box(28.5, -1, 7, 36, 1)), neck);
  sketch.Body(turned(Path::Box(26.5, -6, 11, 10, 2)), neck);
  const Path body = turned(Path::Circle({32, 49}, 16 - pen).And(Path::Circle({32, 32}, 12.5 - pen)));
  sketch.Sticker(body, 0, kOrange);
  sketch.Fill(turned(Path::Circle({32, 35}, 5.5)), Dark(kBrown));
  sketch.Fill(turned(Path::Box(25, 50, 14, 4, 1.5)), Dark(kBrown));
  if (sketch.Small()) return;
  sketch.Fill(turned(Path::Circle({32, 35}, 7).Without(Path::Circle({32, 35}, 6.2))), kCream);
  for (const double x : {30.4, 32.0, 33.6})
    sketch.Fill(turned(Path::Box(x - 0.25, -2, 0.5, 53)), Faded(kCream, 0.85));
}

void Xylophone(Sketch& sketch) {
  const Colour colours[] = {kRed, kOrange, kYellow, kGreen, kSky, kViolet};
  if (sketch.Small()) {
    for (const double y : {20.0, 40.0}) sketch.Fill(Path::Box(2, y, 60, 4), Dark(kBrown));
    for (int i = 0; i < 5; ++i) sketch.Part(Path::Box(4 + 12 * i, 4 + 4 * i, 8, 56 - 8 * i), colours[i]);
    return;
  }
  for (const bool below : {false, true}) {
    const Path beam = below ? Path().MoveTo({5, 48}).LineTo({60, 37}) : Path().MoveTo({5, 16}).LineTo({60, 27});
    sketch.Rod(beam, 7, kBrown);
  }
  for (int i = 0; i < 6; ++i) {
    const double top = 5 + 3.3 * i;
    sketch.Body(Path::Box(3.5 + 9.7 * i, top, 8.4, 64 - 2 * top, 2.4), colours[i]);
    for (const double y : {top + 5, 59 - top}) sketch.Fill(Path::Circle({7.7 + 9.7 * i, y}, 1.1), Dark(colours[i]));
  }
  sketch.Rod(Path().MoveTo({24, 59}).LineTo({51, 53}), 4.8, kWood);
  sketch.Body(Path::Circle({54, 52.5}, 6.5), kCream);
}

Path DrumSide(double top, double bottom) {
  Path side;
  for (int i = 0; i <= 36; ++i) {
    const double angle = 3.14159265 * i / 36;
    side.LineTo({32 + 26 * std::cos(angle), bottom + 9 * std::sin(angle)});
  }
  return side.LineTo({6, top}).LineTo({58, top});
}

void Drum(Sketch& sketch) {
  sketch.Body(DrumSide(28, 51), kRed);
  const Path side = DrumSide(28, 51);
  Path cord;
  for (int i = 0; i <= 6; ++i) cord.LineTo({6 + 52.0 * i / 6, (i % 2 == 0 ? 32.0 : 50.0) + (i > 0 && i < 6 ? 6 : 0)});
  if (!sketch.Small()) sketch.FillWithin(side, cord.Stroked(2, false), kCream);
  const Path rim = Path::Ellipse({32, 30}, 28, 11);
  sketch.Body(rim, kYellow);
  sketch.Body(Path::Ellipse({32, 28}, sketch.Small() ? 28 : 24.5, sketch.Small() ? 10 : 8.5), kCream);
  for (const bool right : {false, true}) {
    Path stick = Path().MoveTo({9, 5}).LineTo({36, 26});
    Path knob = Path::Circle({37, 27}, 3.6);
    if (right) {
      stick = stick.Mirrored(32).Moved(-1, 2);
      knob = knob.Mirrored(32).Moved(-1, 2);
    }
    sketch.Small() ? sketch.Line(stick, 4, kBrown) : sketch.Rod(stick, 4.6, kWood);
    if (!sketch.Small()) sketch.Body(knob, kWood);
  }
}

void PianoKeys(Sketch& sketch) {
  const Path box = Path::Box(4, 8, 56, 48, 4);
  sketch.Body(box, Mixed(kCream, kWhite, 0.6));
  const Path rail = Path::Box(4, 8, 56, sketch.Small() ? 8 : 11, 3);
  sketch.FillWithin(box, rail, sketch.Small() ? Dark(kRed) : kRed);
  if (!sketch.Small()) sketch.FillWithin(box, Path::Box(4, 17, 56, 2.2), Dark(kRed));
  const double line = sketch.Small() ? 4 : 1.6;
  for (const double x : {24.0, 40.0}) {
    sketch.FillWithin(box, Path::Box(x - line / 2, 16, line, 40), sketch.Small() ? kSteel : kSlate);
  }
  for (const double x : {24.0, 40.0}) {
    const Path key = Path::Box(x - 5, 16, 10, 24, sketch.Small() ? 0 : 1.6);
    sketch.Small() ? sketch.Fill(Path::Box(x - 4, 16, 8, 24), kInk) : sketch.Body(key, Mixed(kSlate, kInk, 0.6));
  }
  sketch.Outline(box, Dark(kSteel));
}

void SmallTrumpet(Sketch& sketch) {
  const Colour brass = Mixed(kYellow, kOrange, 0.35);
  sketch.Fill(Path::Box(8, 40, 32, 4), Dark(kYellow));
  sketch.Fill(Path::Box(4, 28, 40, 4), brass);
  sketch.Fill(Path::Box(2, 24, 4, 12), kSteel);
  sketch.Outline(Path::Box(12, 28, 28, 20, 6), Mixed(brass, kInk, 0.3));
  for (const double x : {20.0, 28.0}) sketch.Fill(Path::Box(x, 16, 4, 28), Dark(kOrange));
  sketch.Body(Path::Polygon({{38, 27}, {46, 24}, {62, 10}, {62, 50}, {46, 36}, {38, 33}}), kYellow);
}

void Trumpet(Sketch& sketch) {
  if (sketch.Small()) {
    SmallTrumpet(sketch);
    return;
  }
  const auto turned = [](const Path& path) { return path.Turned(-24, {32, 32}).Scaled(0.95, {32, 36}); };
  const double tube = 6.5;
  const Path loop = turned(Path::Box(15, 30, 28, 15, 7.5));
  sketch.Fill(loop.Stroked(tube, true), Dark(kYellow));
  sketch.Part(loop.Stroked(tube - 2 * sketch.Pen(), true), kYellow);
  sketch.Rod(turned(Path().MoveTo({2, 30}).LineTo({44, 30})), tube, kYellow);
  Path bell;
  bell.MoveTo({40, 26.7}).CurveTo({52, 26}, {56, 20}, {61, 12}).LineTo({61, 48});
  bell.CurveTo({56, 40}, {52, 34}, {40, 33.3});
  sketch.Body(turned(bell), kYellow);
  sketch.Body(turned(Path::Box(-1, 25.5, 5, 9, 1.5)), kSilver);
  for (const double x : {20.0, 27.5, 35.0}) {
    sketch.Body(turned(Path::Box(x - 2.8, 22, 5.6, 20, 2)), kOrange);
    sketch.Body(turned(Path::Box(x - 3, 16, 6, 4.4, 2)), kCream);
    sketch.Fill(turned(Path::Box(x - 0.9, 19.5, 1.8, 3.5)), Dark(kYellow));
  }
}

void Maraca(Sketch& sketch, Colour colour, bool right) {
  const auto placed = [right](const Path& path) {
    const Path turned = path.Turned(-32, {32, 32}).Moved(-3, 2);
    return right ? turned.Mirrored(32) : turned;
  };
  sketch.Body(placed(Path::Box(28.5, 28, 7, 36, 3.5)), kWood);
  const Path head = placed(Path::Ellipse({32, 14}, 14, 17));
  sketch.Body(head, colour);
  if (sketch.Small()) {
    sketch.FillWithin(head, placed(Path::Box(21, 11, 22, 5)), kCream);
    return;
  }
  for (const double y : {8.5, 18.0}) sketch.FillWithin(head, placed(Path::Box(19.8, y, 24.4, 2.4)), kCream);
  Path zigzag;
  for (int i = 0; i <= 8; ++i) zigzag.LineTo({20 + 3.0 * i, i % 2 == 0 ? 12.6 : 16.4});
  sketch.FillWithin(head.Scaled(0.88, {25, 15}), placed(zigzag.Stroked(1.4, false)), kCream);
}

void Maracas(Sketch& sketch) {
  Maraca(sketch, kTeal, true);
  Maraca(sketch, kRed, false);
}

void Metronome(Sketch& sketch) {
  sketch.Body(Path::Polygon({{25, 3}, {39, 3}, {55, 61}, {9, 61}}), kWood);
  if (!sketch.Small()) sketch.Body(Path::Polygon({{27.5, 10}, {36.5, 10}, {45, 46}, {19, 46}}), kCream);
  if (sketch.Small()) sketch.Fill(Path::Polygon({{28, 12}, {36, 12}, {43, 44}, {21, 44}}), kCream);
  const Path rod = Path().MoveTo({31, 46}).LineTo({50, 8});
  sketch.Small() ? sketch.Line(rod, 4, kSlate) : sketch.Rod(rod, 4.6, kSteel);
  if (!sketch.Small()) {
    for (int i = 0; i < 6; ++i) sketch.Fill(Path::Box(25 - i * 0.6, 16 + 4.4 * i, 4, 1, 0.5), kSteel);
    sketch.Body(Path::Box(-5, -4, 10, 8, 2).Turned(27, {0, 0}).Moved(44.3, 19.5), kRed);
    sketch.Body(Path::Box(8.7, 47, 46.6, 14, 2), kBrown);
    sketch.Body(Path::Circle({32, 54}, 3.4), kYellow);
    return;
  }
  sketch.Fill(Path::Circle({45, 18}, 6), kRed);
  sketch.Fill(Path::Box(14, 46, 36, 10), kBrown);
}

void Gramophone(Sketch& sketch) {
  sketch.Body(Path::Box(8, 46, 48, 16, 3), kBrown);
  if (!sketch.Small()) {
    sketch.Body(Path::Box(5, 57, 54, 5.5, 2), kBrown);
    sketch.Body(Path::Ellipse({25, 45}, 15, 4), Mixed(kSlate, kInk, 0.3));
    sketch.Body(Path::Ellipse({25, 44.4}, 5, 1.8), kRed);
  }
  Path horn;
  horn.MoveTo({10, 32}).CurveTo({28, 30}, {38, 36}, {40, 48}).LineTo({48, 48}).CurveTo({50, 30}, {42, 22}, {40, 6});
  sketch.Body(horn, kYellow);
  const Path bell = Path::Ellipse({24, 19}, 21.5, 14.5).Turned(-40, {24, 19});
  sketch.Body(bell, kYellow);
  const Path inside = Path::Ellipse({23, 18}, 16, 10).Turned(-40, {23, 18});
  sketch.Fill(inside, Shaded(inside.Turned(180, {23, 18}), Mixed(kOrange, kInk, 0.12)));
  const Path throat = Path::Ellipse({26.5, 21.5}, 7, 4.6).Turned(-40, {26.5, 21.5});
  sketch.Fill(throat, Dark(kOrange));
}

}  // namespace

std::span<const Drawing> Instruments() {
  static constexpr Drawing kInstruments[] = {Guitar,  Xylophone, Drum,      PianoKeys,
                                             Trumpet, Maracas,   Metronome, Gramophone};
  return kInstruments;
}

}  // namespace qublet::drawing
