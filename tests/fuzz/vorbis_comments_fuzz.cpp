#include "fuzz/fuzz_input.h"
#include "media/vorbis_comments.h"
#include "support/memory_file.h"

using namespace qublet;

// A result and its reason fit each other, and a block of the file is read at most twice.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryFile file(Bytes(data, data + size));
  VorbisComments comments;
  const bool found = ReadVorbisComments(file, comments);
  Require(found == comments.ErrorText.empty());
  Require(comments.Title.size() <= 2 * 2048);
  Require(file.BytesRead() <= size + 2 * 2048);
  return 0;
}
