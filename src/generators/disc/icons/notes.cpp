#include "generators/disc/icons/drawings.h"
#include "generators/disc/icons/shapes.h"

namespace qublet::drawing {
namespace {

void SingleNote(Sketch& sketch) {
  sketch.Sticker(EighthNote({24, 48}, 50), 1, kViolet);
}

void TwoNotes(Sketch& sketch) {
  sketch.Sticker(BeamedNotes({15, 51}, 52, 30), 1, kBlue);
}

void Clef(Sketch& sketch, const Path& line, const Path& dots, Colour colour) {
  const double pen = sketch.Small() ? 5.4 : 5;
  const Path stroke = line.Stroked(pen, false);
  if (sketch.Small()) {
    sketch.Fill(stroke.And(dots), Mixed(colour, kInk, 0.15));
    return;
  }
  sketch.Fill(line.Stroked(pen + 2 * sketch.Pen(), false), Dark(colour));
  sketch.Fill(dots.Stroked(2 * sketch.Pen(), true).And(dots), Dark(colour));
  sketch.Part(stroke, colour);
  sketch.Part(dots, colour);
}

void TrebleClef(Sketch& sketch) {
  Path line;
  line.MoveTo({33, 44}).CurveTo({28, 42}, {28, 35}, {34, 34}).CurveTo({43, 33}, {46, 46}, {37, 49});
  line.CurveTo({26, 52}, {17, 45}, {18, 37}).CurveTo({19, 28}, {38, 24}, {39, 12});
  line.CurveTo({39, 5}, {33, 4}, {32, 12})
      .CurveTo({31, 20}, {36, 40}, {37, 52})
      .CurveTo({37, 60}, {29, 61}, {27, 56});
  Clef(sketch, line, Path::Circle({28, 55.5}, 3.5), kTeal);
}

void BassClef(Sketch& sketch) {
  Path line;
  line.MoveTo({15, 24}).CurveTo({13, 4}, {43, 2}, {43, 24}).CurveTo({43, 40}, {30, 51}, {13, 58});
  Clef(sketch, line, Path::Circle({18, 25}, 6).And(Path::Circle({55, 16}, 4)).And(Path::Circle({55, 33}, 4)),
       kOrange);
}

void SheetOfMusic(Sketch& sketch) {
  const Path paper = Path::Polygon({{10, 2}, {42, 2}, {54, 14}, {54, 62}, {10, 62}});
  sketch.Body(paper, Mixed(kCream, kWhite, 0.4));
  sketch.Body(Path::Polygon({{42, 2}, {54, 14}, {42, 14}}), kWood);
  if (sketch.Small()) {
    for (const double y : {24.0, 36.0, 48.0}) sketch.Fill(Path::Box(16, y, 32, 3), kSteel);
    sketch.Fill(BeamedNotes({21, 52}, 32, 18), kInk);
    return;
  }
  for (const double top : {17.0, 38.0}) {
    for (int i = 0; i < 5; ++i) sketch.Fill(Path::Box(15, top + 3.6 * i, 34, 0.8), kSteel);
  }
  sketch.Fill(EighthNote({20, 31}, 16), kInk);
  sketch.Fill(BeamedNotes({32, 31}, 16, 10), kInk);
  sketch.Fill(BeamedNotes({20, 52}, 16, 10), kRed);
  sketch.Fill(EighthNote({40, 50}, 16), kInk);
}

}  // namespace

std::span<const Drawing> Notes() {
  static constexpr Drawing kNotes[] = {SingleNote, TwoNotes, TrebleClef, BassClef, SheetOfMusic};
  return kNotes;
}

}  // namespace qublet::drawing
