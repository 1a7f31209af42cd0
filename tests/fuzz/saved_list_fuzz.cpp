#include "fuzz/fuzz_input.h"
#include "support/saved_over.h"

// Whatever a playlist holds, opening it and saving it over itself changes no line whose file is missing, and no row
// loses its file. The first byte chooses the type.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static qublet::SavedOver list;
  if (size == 0) return 0;
  const std::string bytes(qublet::TextOf(data + 1, size - 1));
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return 0;
  qublet::Require(list.FaultOf(bytes, data[0] % 2 == 0 ? "list.m3u" : "list.m3u8").empty());
  return 0;
}
