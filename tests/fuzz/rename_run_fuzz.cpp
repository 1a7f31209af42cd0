#include "fuzz/fuzz_input.h"
#include "support/memory_file.h"
#include "tools/rename/kept_renames.h"

// A kept run may be anything: what is damaged is refused, and what is read is no longer than the file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qublet::ResumeNext([&] {
    const qublet::KeptRun run =
        qublet::ReadKeptRun(std::make_unique<qublet::MemoryFile>(qublet::Bytes(data, data + size)));
    std::size_t length = 0;
    for (const qublet::KeptRename& rename : run.renames) length += rename.old_path.size() + rename.new_path.size();
    qublet::Require(length <= size);
  });
  return 0;
}
