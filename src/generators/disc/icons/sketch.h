#pragma once

#include "generators/disc/icons/canvas.h"

namespace qublet::drawing {

// The hand that draws all icons: every body has the same light, from above on the left, and the same kind of outline.
class Sketch {
 public:
  explicit Sketch(int side) : canvas_(side) {}

  // Below 32 pixels a drawing leaves out its details.
  bool Small() const { return canvas_.Side() < 32; }
  // The width of an outline in units: a whole pixel at 16, thinner the more pixels there are.
  double Pen() const;

  // A thing: shaded, its rim lit, outlined within its path.
  void Body(const Path& path, Colour colour);
  // The same, painted by something else than its colour; `dark` is that of the outline.
  void Body(const Path& path, const Paint& paint, Colour outline);
  // A thing that may have been put together of several: its corners are rounded by `round`, and the outline lies
  // around it.
  void Sticker(const Path& path, double round, Colour colour);
  // A part of a thing, shaded but without a rim or an outline.
  void Part(const Path& path, Colour colour);
  void Fill(const Path& path, const Paint& paint) { canvas_.Fill(canvas_.CoverOf(path), paint); }
  void Fill(const Path& path, Colour colour);
  // Only where it lies within another path.
  void FillWithin(const Path& frame, const Path& path, const Paint& paint);
  void FillWithin(const Path& frame, const Path& path, Colour colour);
  void Outline(const Path& path, Colour colour);
  // A line that a round pen draws; as a thing (a rod, a cable) it is outlined.
  void Line(const Path& path, double width, Colour colour);
  void Rod(const Path& path, double width, Colour colour);
  // A soft light or shade within a path, as of something round.
  void Glow(const Path& frame, Point centre, double radius, Colour colour);

  IconPicture Picture() const { return canvas_.Picture(); }

 private:
  Cover Rounded(const Path& path, double round) const;
  void Rim(const Cover& cover, double wide, const std::function<Cover(double, double)>& moved);

  Canvas canvas_;
};

Paint Plain(Colour colour);
Paint Shaded(const Path& path, Colour colour);
// What the outline of a thing of this colour is drawn with.
Colour Dark(Colour colour);

}  // namespace qublet::drawing
