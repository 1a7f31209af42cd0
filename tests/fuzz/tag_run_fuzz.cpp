#include "fuzz/fuzz_input.h"
#include "media/editor/run_file.h"
#include "platform/failure.h"
#include "support/memory_file.h"

// A kept run may be anything: what is damaged is refused, and what is read is no longer than the file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qublet::ResumeNext([&] {
    const qublet::RunReader reader(std::make_unique<qublet::MemoryFile>(qublet::Bytes(data, data + size)));
    for (std::size_t i = 0; i < reader.Count(); ++i) {
      qublet::ResumeNext([&] {
        const qublet::RunRecord record = reader.At(i);
        qublet::Require(record.old_head.size() + record.old_tail.size() <= size);
      });
    }
  });
  return 0;
}
