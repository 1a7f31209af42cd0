#include "media/tag_change.h"

#include "fuzz/fuzz_input.h"
#include "fuzz/one_file.h"
#include "media/tag_file.h"
#include "media/tpsi.h"
#include "platform/code_page.h"

using namespace qublet;

namespace {

const std::string kPath = "z:\\m\\a.mp3";

TagChange ChangeOf(Pieces& pieces) {
  TagChange change;
  for (std::size_t count = pieces.UpTo(3); count > 0; --count) {
    const TagField& field = TagFields()[pieces.UpTo(TagFields().size() - 1)];
    const std::string text = DecodeText(pieces.Text());
    change.settings.emplace_back(&field, text.substr(0, text.find('\0')));
  }
  const std::uint8_t what = pieces.Byte();
  change.remove_v1 = (what & 1) != 0;
  change.remove_v2 = (what & 2) != 0;
  if ((what & 4) != 0) change.comments.push_back({"a", "b"});
  if ((what & 8) != 0) change.pictures.push_back({"c", "image/bmp", {'B', 'M', what}});
  if ((what & 16) != 0) change.positions.push_back(TpsiRecord(1, 2, 3));
  return change;
}

FileEnds EndsOf(const Bytes& content) {
  MemoryFile file(content);
  return FindEnds(file);
}

}  // namespace

// What is to become of a file's tags, then the file. A change that was worked out leaves every byte outside the two
// tags alone, and it is there when the file is read again; the same change once more changes nothing.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<FileSystem> system = OpenFileSystem();
  Pieces pieces(data, size);
  const TagChange change = ChangeOf(pieces);
  const Bytes content = pieces.RestBytes();
  const OneFile before(*system, content);
  TagWrite write;
  if (!Attempt([&] { write = PlanTagChange(before, kPath, change); }) || !write.id3v2) return 0;
  const EndsChange& ends = write.change;
  const FileEnds tags = EndsOf(content);
  Require(ends.before >= 0 && ends.old_head >= 0 && ends.old_tail >= 0);
  Require(ends.old_head == 0 || ends.before >= tags.head_start);
  Require(ends.before + ends.old_head <= tags.heads_end && ends.old_tail <= tags.id3v1_size);
  const Bytes written = before.Changed(ends);

  const OneFile after(*system, written);
  TagObject tag(after);
  tag.ReadTags(kPath, false);
  if (change.settings.empty()) {
    Require(!change.remove_v1 || !tag.HasID3v1());
  } else if (change.settings.size() == 1) {
    const auto& [field, text] = change.settings.front();
    Require(field->in_v1 ? tag.HasID3v1() : tag.HasID3v2());
    if (!field->in_v1) Require(field->get(tag, field->name) == text);
  }
  if (!change.Adds()) Require(PlanTagChange(after, kPath, change).ChangesNothing());
  return 0;
}
