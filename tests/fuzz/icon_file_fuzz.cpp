#include "fuzz/fuzz_input.h"
#include "generators/disc/icon_file.h"

// An icon may be any file of the user's. What is read of it is a whole picture, and can be written and read again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const int side : {16, 256}) {
    const auto picture = qublet::ReadIcon(qublet::TextOf(data, size), side);
    if (!picture) continue;
    const auto file = qublet::IconFileOf({{*picture}});
    qublet::Require(file.has_value());
    const auto again = qublet::ReadIcon(*file, side);
    qublet::Require(again && again->width == picture->width && again->height == picture->height);
  }
  return 0;
}
