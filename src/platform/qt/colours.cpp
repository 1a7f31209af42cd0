#include "platform/qt/colours.h"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cmath>

namespace qublet {
namespace {

double Linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

QColor Mixed(const QColor& a, const QColor& b, double part) {
  const auto mix = [part](int of_a, int of_b) {
    return static_cast<int>(std::lround(of_a * part + of_b * (1 - part)));
  };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

QColor Legible(const QColor& colour, const QColor& background, double contrast) {
  if (Contrast(colour, background) >= contrast) return colour;
  // On the side of the background where it stands, if there is room enough.
  const bool lighter = Luminance(colour) >= Luminance(background);
  const QColor near = lighter ? Qt::white : Qt::black;
  const QColor end = Contrast(near, background) >= contrast ? near : lighter ? Qt::black : Qt::white;
  constexpr int kSteps = 32;
  for (int step = 1; step < kSteps; ++step) {
    const QColor moved = Mixed(end, colour, static_cast<double>(step) / kSteps);
    if (Contrast(moved, background) >= contrast) return moved;
  }
  return end;
}

QColor StrongestOn(const QColor& background) {
  return Contrast(Qt::black, background) > Contrast(Qt::white, background) ? Qt::black : Qt::white;
}

std::optional<QPalette::ColorRole> SystemColour(std::int32_t colour) {
  if (colour >= 0) return std::nullopt;
  // By the system's numbers: scroll bar, desktop, captions, menu, window, ...
  constexpr std::array<QPalette::ColorRole, 31> kRoles{QPalette::Button,
                                                       QPalette::Window,
                                                       QPalette::Highlight,
                                                       QPalette::Mid,
                                                       QPalette::Window,
                                                       QPalette::Base,
                                                       QPalette::Dark,
                                                       QPalette::WindowText,
                                                       QPalette::Text,
                                                       QPalette::HighlightedText,
                                                       QPalette::Mid,
                                                       QPalette::Midlight,
                                                       QPalette::Mid,
                                                       QPalette::Highlight,
                                                       QPalette::HighlightedText,
                                                       QPalette::Button,
                                                       QPalette::Mid,
                                                       QPalette::PlaceholderText,
                                                       QPalette::ButtonText,
                                                       QPalette::WindowText,
                                                       QPalette::Light,
                                                       QPalette::Shadow,
                                                       QPalette::Midlight,
                                                       QPalette::ToolTipText,
                                                       QPalette::ToolTipBase,
                                                       QPalette::Button,
                                                       QPalette::Link,
                                                       QPalette::Highlight,
                                                       QPalette::Mid,
                                                       QPalette::Highlight,
                                                       QPalette::Window};
  const std::size_t number = static_cast<std::uint32_t>(colour) & 0xFFU;
  return number < kRoles.size() ? kRoles[number] : QPalette::Window;
}

QColor ColourFromSetting(std::int32_t colour) {
  if (const auto role = SystemColour(colour)) return QGuiApplication::palette().color(*role);
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

std::int32_t SettingFromColour(const QColor& colour) {
  return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

}  // namespace qublet
