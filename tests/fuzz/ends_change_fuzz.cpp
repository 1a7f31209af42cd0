#include "fuzz/fuzz_input.h"
#include "fuzz/lying_disk.h"
#include "media/file_ends.h"

using namespace qublet;

namespace {

constexpr std::size_t kMost = 2000;

// Nothing where the ends overlap.
std::optional<Bytes> Changed(const Bytes& content, const EndsChange& change, const Bytes& head) {
  const auto size = static_cast<std::int64_t>(content.size());
  if (change.before + change.old_head + change.old_tail > size) return std::nullopt;
  const auto at = [&](std::int64_t place) { return content.begin() + static_cast<std::ptrdiff_t>(place); };
  return Joined({Bytes(at(0), at(change.before)), head,
                 Bytes(at(change.before + change.old_head), at(size - change.old_tail)), change.tail});
}

// A head that is written in place is filled up.
Bytes HeadWritten(const EndsChange& change, bool in_place) {
  Bytes head = change.head;
  if (in_place && !head.empty()) PadTag(head, static_cast<std::size_t>(change.old_head));
  return head;
}

EndsChange ChangeOf(Pieces& pieces) {
  EndsChange change;
  change.before = static_cast<std::int64_t>(pieces.UpTo(20));
  change.old_head = static_cast<std::int64_t>(pieces.UpTo(60));
  change.old_tail = static_cast<std::int64_t>(pieces.UpTo(40));
  const std::size_t kind = pieces.UpTo(3);
  if (kind == 0) change.head = pieces.Bytes(static_cast<std::size_t>(change.old_head));
  if (kind == 1) change.head = pieces.Bytes(pieces.UpTo(60));
  if (kind == 2) change.head = SerialiseTag({3, false, {{"TIT2", 0, pieces.Bytes(pieces.UpTo(20))}}, {}});
  change.tail = pieces.Bytes(pieces.UpTo(40));
  return change;
}

Lies LiesOf(Pieces& pieces) {
  Lies lies;
  lies.read = static_cast<Lies::Read>(pieces.UpTo(3));
  lies.at_read = pieces.UpTo(12);
  lies.left = pieces.UpTo(kMost);
  lies.at_write = pieces.UpTo(8);
  lies.refuses = pieces.Byte() % 2 == 1;
  return lies;
}

}  // namespace

// A file that isn't what it was when it was opened, on a disk where one thing goes wrong: it is the old or the new
// one in the end, never half of each.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<FileSystem> system = OpenFileSystem();
  Pieces pieces(data, size);
  EndsChange change;
  if (!Attempt([&] { change = ChangeOf(pieces); })) return 0;
  Lies lies = LiesOf(pieces);
  const auto other_size = static_cast<std::int64_t>(pieces.UpTo(kMost));
  const bool lies_of_size = pieces.Byte() % 2 == 1;
  const Bytes before = pieces.Bytes(kMost);
  lies.claimed = lies_of_size ? other_size : static_cast<std::int64_t>(before.size());

  const LyingDisk disk(*system, before, lies);
  const auto present = disk.OpenForReading("c:\\a.mp3");
  const Outcome written = Attempt([&] { ReplaceEnds(disk, "c:\\a.mp3", *present, change); });
  Bytes shrunk = before;
  shrunk.resize(std::min(shrunk.size(), lies.left));
  const bool same = disk.Content() == before || (lies.read == Lies::Read::kShrinks && disk.Content() == shrunk);
  if (!written) {
    Require(same);
    return 0;
  }
  Bytes claimed = before;
  claimed.resize(static_cast<std::size_t>(lies.claimed));
  const bool shrank_to_it = lies.read == Lies::Read::kShrinks && claimed.size() == shrunk.size();
  Require(!lies.refuses || claimed.size() == before.size() || shrank_to_it);
  Require(disk.Content() == Changed(claimed, change, HeadWritten(change, lies.refuses)));
  return 0;
}
