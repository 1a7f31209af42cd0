#include "generators/disc/disc_icons.h"

#include "generators/disc/byte_text.h"
#include "generators/disc/icon_file.h"

// What icons/write_disc_icons.cpp has written, taken in by the assembler: a compiler would need minutes for the
// bytes.
asm(".section " DISC_ICONS_SECTION
    "\n"
    ".globl qublet_disc_icons\n"
    "qublet_disc_icons:\n"
    ".incbin \"" DISC_ICONS_FILE
    "\"\n"
    ".text\n");

extern "C" const char qublet_disc_icons[];

namespace qublet {

std::string_view DiscIcon(int number) {
  if (number < 1 || number > kDiscIcons) return {};
  const std::string_view places(qublet_disc_icons, (kDiscIcons + 1) * 4);
  const std::size_t start = LittleEndianAt(places, (number - 1) * 4, 4);
  const std::size_t end = LittleEndianAt(places, number * 4, 4);
  return {qublet_disc_icons + start, end - start};
}

IconPicture DiscPicture(int number, int side) {
  return ReadIcon(DiscIcon(number), side).value_or(IconPicture{});
}

}  // namespace qublet
