#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"

// Whatever bytes a text file holds: they become UTF-8, and what is written of that reads back as the same text.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = qublet::DecodeText(qublet::TextOf(data, size));
  qublet::Require(qublet::IsValidUtf8(text));
  qublet::Require(qublet::DecodeText(qublet::EncodeText(text)) == text);
  return 0;
}
