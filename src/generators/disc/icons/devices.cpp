#include <cmath>

#include "generators/disc/icons/drawings.h"

namespace qublet::drawing {
namespace {

void Cone(Sketch& sketch, Point centre, double radius) {
  sketch.Body(Path::Circle(centre, radius), Mixed(kSlate, kInk, 0.25));
  if (!sketch.Small()) sketch.Body(Path::Circle(centre, radius * 0.72), kSlate);
  sketch.Part(Path::Circle(centre, radius * (sketch.Small() ? 0.42 : 0.34)), kSilver);
}

void Headphones(Sketch& sketch) {
  const Path band = Path().Arc({32, 35}, 23, 180, 360);
  sketch.Small() ? sketch.Line(band, 6.5, Mixed(kSteel, kSlate, 0.4)) : sketch.Rod(band, 9, kSteel);
  for (const bool right : {false, true}) {
    Path pad = Path::Box(15, 34, 9, 24, 4);
    Path cup = Path::Box(4, 32, 15, 28, 7);
    if (right) {
      pad = pad.Mirrored(32);
      cup = cup.Mirrored(32);
    }
    sketch.Body(pad, kSlate);
    sketch.Body(cup, kRed);
  }
}

void Loudspeaker(Sketch& sketch) {
  sketch.Body(Path::Box(12, 2, 40, 60, 5), kWood);
  Cone(sketch, {32, 17}, 8);
  Cone(sketch, {32, 41}, 15);
  if (sketch.Small()) return;
  for (const Point place : {Point{17.5, 7.5}, {46.5, 7.5}, {17.5, 56.5}, {46.5, 56.5}}) {
    sketch.Fill(Path::Circle(place, 1.4), Dark(kWood));
  }
}

void Microphone(Sketch& sketch) {
  const auto turned = [](const Path& path) { return path.Turned(42, {32, 32}).Moved(-1, 0); };
  sketch.Body(turned(Path::Polygon({{25, 24}, {39, 24}, {36, 64}, {28, 64}})), sketch.Small() ? kSteel : kSlate);
  const Path head = turned(Path::Circle({32, 14}, 14));
  sketch.Body(head, kSilver);
  if (!sketch.Small()) {
    for (double x = 14; x < 52; x += 5) {
      for (const double degrees : {42.0, -48.0}) {
        const Path wire = Path::Box(x, -20, 0.9, 104).Turned(degrees, {32, 32});
        sketch.FillWithin(head.Scaled(0.86, {43.4, 18.6}), wire, Faded(kSlate, 0.55));
      }
    }
  }
  sketch.Body(turned(Path::Box(20, 21, 24, 8, 3)), kYellow);
  if (!sketch.Small()) sketch.Body(turned(Path::Box(29.5, 36, 5, 9, 2.5)), kRed);
}

void Radio(Sketch& sketch) {
  sketch.Rod(Path().MoveTo({18, 22}).LineTo({52, 5}), sketch.Small() ? 4 : 4.4, kSteel);
  if (!sketch.Small()) sketch.Body(Path::Circle({53, 5}, 3.2), kRed);
  sketch.Body(Path::Box(3, 20, 58, 40, 7), kTeal);
  Cone(sketch, {21, 40}, 13);
  sketch.Body(Path::Box(38, 26, 18, 12, 2), kCream);
  if (!sketch.Small()) {
    for (double x = 42; x < 54; x += 3) sketch.Fill(Path::Box(x, 29, 0.9, 4), kSlate);
    sketch.Fill(Path::Box(48.3, 28, 1.5, 8), kRed);
  }
  for (const double x : {42.0, 52.0}) sketch.Body(Path::Circle({x, 48}, sketch.Small() ? 4 : 4.4), kYellow);
}

void Boombox(Sketch& sketch) {
  const Path handle = Path().MoveTo({14, 22}).LineTo({14, 10}).LineTo({50, 10}).LineTo({50, 22});
  sketch.Small() ? sketch.Line(handle, 5, kSteel) : sketch.Rod(handle, 5.5, kSteel);
  sketch.Body(Path::Box(2, 18, 60, 38, 6), kBlue);
  Cone(sketch, {16, 39}, 11.5);
  Cone(sketch, {48, 39}, 11.5);
  if (sketch.Small()) {
    sketch.Fill(Path::Box(28, 32, 8, 12), kYellow);
    return;
  }
  sketch.Body(Path::Box(27.5, 35, 9, 15, 1.5), kYellow);
  sketch.Fill(Path::Box(29.8, 40, 4.4, 5, 1), Dark(kYellow));
  int number = 0;
  for (const Colour colour : {kRed, kCream, kCream, kGreen}) {
    sketch.Body(Path::Box(21 + 5.7 * number++, 22, 4.8, 4.5, 1.2), colour);
  }
}

void Equaliser(Sketch& sketch) {
  const double heights[] = {28, 44, 56, 36, 20};
  const Colour colours[] = {kSky, kTeal, kGreen, kYellow, kOrange};
  for (int i = 0; i < 5; ++i) {
    const Path bar = Path::Box(sketch.Small() ? 4 + 12 * i : 2.5 + 12.25 * i, 60 - heights[i],
                               sketch.Small() ? 8 : 10, heights[i], sketch.Small() ? 0 : 3);
    sketch.Small() ? sketch.Part(bar, Mixed(colours[i], kInk, 0.12)) : sketch.Body(bar, colours[i]);
  }
}

void SoundWave(Sketch& sketch) {
  const Path screen = Path::Box(3, 8, 58, 48, 7);
  sketch.Body(screen, Mixed(kNight, kInk, 0.3));
  if (!sketch.Small()) {
    for (double x = 12; x < 60; x += 8) sketch.FillWithin(screen, Path::Box(x, 11, 0.6, 42), Faded(kSky, 0.22));
    for (double y = 16; y < 54; y += 8) sketch.FillWithin(screen, Path::Box(6, y, 52, 0.6), Faded(kSky, 0.22));
  }
  Path wave;
  for (int i = 0; i <= 100; ++i) {
    const double part = i / 100.0;
    const double swell = 0.35 + 0.65 * std::sin(part * 3.14159);
    wave.LineTo({9 + 46 * part, 32 - 17 * swell * std::sin(part * 6.28318 * (sketch.Small() ? 1.5 : 2.5))});
  }
  if (!sketch.Small()) sketch.Line(wave, 6.5, Faded(kTeal, 0.4));
  sketch.Line(wave, sketch.Small() ? 4.5 : 3, Mixed(kGreen, kWhite, 0.35));
}

}  // namespace

std::span<const Drawing> Devices() {
  static constexpr Drawing kDevices[] = {Headphones, Loudspeaker, Microphone, Radio, Boombox, Equaliser, SoundWave};
  return kDevices;
}

}  // namespace qublet::drawing
