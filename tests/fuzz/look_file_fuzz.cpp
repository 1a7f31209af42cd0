#include "fuzz/fuzz_input.h"
#include "settings/schemes/look_file.h"

// A kept look may be anything: it is read, and written again in the same length.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const qublet::Look look = qublet::LookOfRecord(qublet::TextOf(data, size));
  const std::string record = qublet::LookRecord(look);
  qublet::Require(record.size() == qublet::kLookRecordSize);
  qublet::Require(qublet::LookOfRecord(record) == look);
  qublet::Look taken;
  qublet::Require(!qublet::TakeLook(look, taken) || taken == look);
  return 0;
}
