#include <cmath>

#include "fuzz/fuzz_input.h"
#include "media/mpeg_stream.h"
#include "platform/failure.h"
#include "support/memory_file.h"

// A stream's facts are sound, or the file is refused; either way no byte of it is read over and over.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qublet::MemoryFile file(qublet::Bytes(data, data + size));
  try {
    const qublet::StreamFacts facts = qublet::ReadStreamInfo(file);
    qublet::Require(std::isfinite(facts.StreamLength) && facts.StreamLength >= 0);
    qublet::Require(facts.StreamSamplerate >= 8000 && facts.StreamSamplerate <= 48000);
    qublet::Require(!facts.StreamLayer.empty() && !facts.StreamVersion.empty() && !facts.StreamMode.empty());
    qublet::Require(!facts.StreamBitrate.empty());
  } catch (const qublet::Failure&) {
  }
  qublet::Require(file.BytesRead() <= 65536 + 4 * size);
  return 0;
}
