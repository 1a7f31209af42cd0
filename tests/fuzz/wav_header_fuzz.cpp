#include "fuzz/fuzz_input.h"
#include "media/wav_header.h"
#include "platform/failure.h"
#include "support/memory_file.h"

// The numbers of any 36 bytes are taken as they are, and overflow in no sum that is made of them.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qublet::MemoryFile file(qublet::Bytes(data, data + size));
  qublet::WavHeader header;
  qublet::Require(!qublet::ReadWavHeader(file, header));
  qublet::ResumeNext([&] {
    const std::int32_t rate = qublet::WavBitRate(header);
    qublet::WavKilobits(rate);
    qublet::WavLength(header.ChunkSize, rate);
  });
  return 0;
}
