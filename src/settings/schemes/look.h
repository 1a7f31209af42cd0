#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/app_settings.h"

namespace qublet {

// How the list looks. Colours have red in the low byte; those below 0 stand for a colour of the system (see
// platform/qt/colours.h).
struct Look {
  std::int32_t background = 0;
  std::int32_t text = 0;
  std::string font;
  double size = 0;  // in points
  bool bold = false;
  bool italic = false;
  bool strikethrough = false;
  bool underline = false;
  bool grid = false;
  bool operator==(const Look&) const = default;
};

// A look that everyone has, behind the button `name`.
struct Scheme {
  std::string_view name;
  std::string_view caption;
  std::int32_t background;
  std::int32_t text;
  std::string_view font;
  double size;
  bool grid;
};

std::span<const Scheme> Schemes();
// Null when no scheme has this caption, letter for letter.
const Scheme* FindScheme(std::string_view caption);
Look LookOf(const Scheme& scheme);

// The size as a whole number, ties to the even one. Throws Failure beyond 16 bits.
std::int16_t WholeSize(const Look& look);

Look LookOf(const AppSettings& settings);
// A size that is no 16-bit number leaves the old one.
void StoreLook(const Look& look, AppSettings& settings);
// What a look is kept as in the store.
std::vector<Setting> StoredLook(const AppSettings& settings);

// The size as it can be painted: within what the settings offer.
double ShownSize(const Look& look);

// Copies field after field in the order above, and stops at a font without a name and at a size that the settings
// don't offer: False, with what was copied until then.
bool TakeLook(const Look& from, Look& to);

}  // namespace qublet
