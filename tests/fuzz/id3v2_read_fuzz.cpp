#include "fuzz/fuzz_input.h"
#include "media/file_ends.h"
#include "media/id3/id3v2_tag.h"
#include "support/memory_file.h"

using namespace qublet;

// What compressed frames of a tag may take at most.
constexpr std::size_t kMostInflated = std::size_t{64} << 20;

// Whatever a file holds, its tags are read in one go and take no more memory than it does, a few times over, and what
// is allowed to compressed frames.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryFile file(Bytes(data, data + size));
  const FileEnds ends = FindEnds(file);
  ReadId3v1(file, ends);
  auto raw = ReadHead(file, ends);
  Require(file.BytesRead() <= 4 * size + 2048);
  if (!raw) return 0;

  std::size_t content = raw->tail.size();
  for (const RawFrame& frame : raw->frames) content += frame.content.size();
  Require(content <= size);
  const Id3v2Tag tag(std::move(*raw));
  for (const RawFrame& frame : tag.Raw().frames) tag.Frame(frame.id);
  for (const auto description : kPropertyDescriptions) tag.Property(description);
  Require(tag.Frame("TYER").size() <= 3 * (size + kMostInflated));
  tag.Comments();
  for (const TagPicture& picture : tag.Pictures()) Require(picture.data.size() <= size + kMostInflated);
  return 0;
}
