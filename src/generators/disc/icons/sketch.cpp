#include "generators/disc/icons/sketch.h"

#include <algorithm>
#include <cmath>

namespace qublet::drawing {
namespace {

struct Bounds {
  Point first{1e9, 1e9};
  Point last{-1e9, -1e9};
};

Bounds BoundsOf(const Path& path) {
  Bounds bounds;
  for (const Path::Piece& piece : path.Pieces()) {
    for (const Point& point : piece) {
      bounds.first = {std::min(bounds.first.x, point.x), std::min(bounds.first.y, point.y)};
      bounds.last = {std::max(bounds.last.x, point.x), std::max(bounds.last.y, point.y)};
    }
  }
  return bounds;
}

Cover Both(Cover a, const Cover& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] *= b[i];
  return a;
}

Cover OnlyFirst(Cover a, const Cover& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] *= 1 - std::min(b[i], 1.0);
  return a;
}

}  // namespace

Paint Plain(Colour colour) {
  return [colour](Point) { return colour; };
}

Paint Shaded(const Path& path, Colour colour) {
  const Bounds bounds = BoundsOf(path);
  const double width = std::max(bounds.last.x - bounds.first.x, 1e-3);
  const double height = std::max(bounds.last.y - bounds.first.y, 1e-3);
  const Colour light = Mixed(colour, Faded(kWhite, colour.alpha), 0.26);
  const Colour shade = Shadowed(colour, 0.32);
  return [=](Point p) {
    const double part = 0.35 * (p.x - bounds.first.x) / width + 0.65 * (p.y - bounds.first.y) / height;
    const double t = std::clamp(part, 0.0, 1.0);
    return t < 0.5 ? Mixed(light, colour, t * 2) : Mixed(colour, shade, t * 2 - 1);
  };
}

Colour Dark(Colour colour) {
  return Mixed(Shadowed(colour, 1), kInk, 0.5);
}

double Sketch::Pen() const {
  return std::max(64.0 / canvas_.Side(), 1.8);
}

void Sketch::Body(const Path& path, Colour colour) {
  Body(path, Shaded(path, colour), Dark(colour));
}

void Sketch::Body(const Path& path, const Paint& paint, Colour outline) {
  const Cover cover = canvas_.CoverOf(path);
  canvas_.Fill(cover, paint);
  Rim(cover, Pen() + 1.3, [&](double x, double y) { return canvas_.CoverOf(path.Moved(x, y)); });
  canvas_.Fill(Both(cover, canvas_.CoverOf(path.Stroked(2 * Pen(), true))), Plain(outline));
}

void Sketch::Sticker(const Path& path, double round, Colour colour) {
  canvas_.Fill(Rounded(path, round + 2 * Pen()), Plain(Dark(colour)));
  const Cover cover = Rounded(path, round);
  canvas_.Fill(cover, Shaded(path, colour));
  Rim(cover, 1.3, [&](double x, double y) { return Rounded(path.Moved(x, y), round); });
}

Cover Sketch::Rounded(const Path& path, double round) const {
  Cover cover = canvas_.CoverOf(path);
  if (round <= 0) return cover;
  const Cover around = canvas_.CoverOf(path.Stroked(round, true));
  for (std::size_t i = 0; i < cover.size(); ++i) cover[i] = std::max(cover[i], around[i]);
  return cover;
}

// A thin line of light on the lit side, one of shade on the other.
void Sketch::Rim(const Cover& cover, double wide, const std::function<Cover(double, double)>& moved) {
  if (Small()) return;
  canvas_.Fill(OnlyFirst(cover, moved(wide * 0.8, wide)), Plain(Faded(kWhite, 0.45)));
  canvas_.Fill(OnlyFirst(cover, moved(-wide * 0.8, -wide)), Plain(Faded(kInk, 0.14)));
}

void Sketch::Part(const Path& path, Colour colour) {
  Fill(path, Shaded(path, colour));
}

void Sketch::Fill(const Path& path, Colour colour) {
  Fill(path, Plain(colour));
}

void Sketch::FillWithin(const Path& frame, const Path& path, const Paint& paint) {
  canvas_.Fill(Both(canvas_.CoverOf(frame), canvas_.CoverOf(path)), paint);
}

void Sketch::FillWithin(const Path& frame, const Path& path, Colour colour) {
  FillWithin(frame, path, Plain(colour));
}

void Sketch::Outline(const Path& path, Colour colour) {
  FillWithin(path, path.Stroked(2 * Pen(), true), colour);
}

void Sketch::Line(const Path& path, double width, Colour colour) {
  Fill(path.Stroked(width, false), colour);
}

void Sketch::Rod(const Path& path, double width, Colour colour) {
  Line(path, width, Dark(colour));
  const Path inside = path.Stroked(std::max(width - 2 * Pen(), 0.6), false);
  Fill(inside, Shaded(inside, colour));
}

void Sketch::Glow(const Path& frame, Point centre, double radius, Colour colour) {
  FillWithin(frame, Path::Circle(centre, radius), [=](Point p) {
    const double part = std::clamp(1 - std::hypot(p.x - centre.x, p.y - centre.y) / radius, 0.0, 1.0);
    return Faded(colour, colour.alpha * part * part);
  });
}

}  // namespace qublet::drawing
