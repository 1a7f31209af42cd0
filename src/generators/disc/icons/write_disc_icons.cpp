// write_disc_icons FILE: draws all icons and writes them as the program takes them in: where each of the files begins
// in FILE and where the last one ends, numbers of four bytes with the lowest first, and behind them the files.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "generators/disc/byte_text.h"
#include "generators/disc/icon_file.h"
#include "generators/disc/icons/drawings.h"

namespace qublet::drawing {
namespace {

constexpr int kSides[] = {16, 24, 32, 48, 256};

std::string IconOf(Drawing draw) {
  std::vector<IconPicture> pictures;
  for (const int side : kSides) {
    Sketch sketch(side);
    draw(sketch);
    pictures.push_back(sketch.Picture());
  }
  return IconFileOf(pictures).value();
}

std::string AllIcons() {
  const std::vector<Drawing> drawings = Drawings();
  std::string places, files;
  const std::size_t start = (drawings.size() + 1) * 4;
  AppendLittleEndian(places, static_cast<std::uint32_t>(start), 4);
  for (const Drawing draw : drawings) {
    files += IconOf(draw);
    AppendLittleEndian(places, static_cast<std::uint32_t>(start + files.size()), 4);
  }
  return places + files;
}

}  // namespace
}  // namespace qublet::drawing

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("write_disc_icons FILE\n", stderr);
    return 2;
  }
  std::ofstream out(arguments[1], std::ios::binary);
  out << qublet::drawing::AllIcons();
  out.close();
  if (out) return 0;
  std::fprintf(stderr, "write_disc_icons: %s can't be written\n", arguments[1]);
  return 1;
}
