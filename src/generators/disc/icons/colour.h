#pragma once

namespace qublet::drawing {

// Parts of red, green and blue from 0 to 1, and how opaque it is; not premultiplied.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
};

constexpr Colour Rgb(unsigned rgb, double alpha = 1) {
  return {(rgb >> 16 & 0xFF) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, alpha};
}

// From `a`, at 0, to `b`, at 1.
constexpr Colour Mixed(Colour a, Colour b, double part) {
  return {a.red + (b.red - a.red) * part, a.green + (b.green - a.green) * part, a.blue + (b.blue - a.blue) * part,
          a.alpha + (b.alpha - a.alpha) * part};
}

constexpr Colour Faded(Colour colour, double alpha) {
  return {colour.red, colour.green, colour.blue, alpha};
}

// In shadow: darker without turning grey.
constexpr Colour Shadowed(Colour colour, double part) {
  return Mixed(colour, {colour.red * 0.62, colour.green * 0.5, colour.blue * 0.62, colour.alpha}, part);
}

// The palette of the whole set.
inline constexpr Colour kInk = Rgb(0x252A40);
inline constexpr Colour kWhite = Rgb(0xFFFFFF);
inline constexpr Colour kCream = Rgb(0xFFF4DF);
inline constexpr Colour kSilver = Rgb(0xD3DBE8);
inline constexpr Colour kSteel = Rgb(0x93A0B8);
inline constexpr Colour kSlate = Rgb(0x545E7A);
inline constexpr Colour kRed = Rgb(0xF0525A);
inline constexpr Colour kOrange = Rgb(0xFA9338);
inline constexpr Colour kYellow = Rgb(0xFFCB42);
inline constexpr Colour kGreen = Rgb(0x55BF72);
inline constexpr Colour kTeal = Rgb(0x2DB7AC);
inline constexpr Colour kSky = Rgb(0x5CBCFA);
inline constexpr Colour kBlue = Rgb(0x4A7BF0);
inline constexpr Colour kViolet = Rgb(0x8D69EE);
inline constexpr Colour kPink = Rgb(0xF57FAE);
inline constexpr Colour kWood = Rgb(0xDD9A55);
inline constexpr Colour kBrown = Rgb(0x9C6238);
inline constexpr Colour kNight = Rgb(0x3A4A8C);

}  // namespace qublet::drawing
