#include "media/tag_change.h"

#include <set>

#include "fuzz/fuzz_input.h"
#include "fuzz/lying_disk.h"
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

// The change is made whole, but to no file that has changed since it was worked out.
void CheckCommit(FileSystem& system, const Bytes& content, const TagWrite& write, const Bytes& written) {
  Lies truth;
  truth.claimed = static_cast<std::int64_t>(content.size());
  const LyingDisk disk(system, content, truth);
  CommitTags(disk, write);
  Require(disk.Content() == written);

  Bytes grown = content;
  grown.push_back(0);
  Lies later;
  later.claimed = static_cast<std::int64_t>(grown.size());
  const LyingDisk changed(system, grown, later);
  Require(write.ChangesNothing() || !Attempt([&] { CommitTags(changed, write); }));
  Require(changed.Content() == grown);
}

// One tag alone is read as both are.
void CheckReading(const FileSystem& files, const TagObject& both) {
  TagObject v1(files);
  TagObject v2(files);
  v1.ReadID3v1(kPath);
  v2.ReadID3v2(kPath);
  Require(v1.HasID3v1() == both.HasID3v1() && v2.HasID3v2() == both.HasID3v2());
  for (const TagField& field : TagFields())
    Require(field.get(field.in_v1 ? v1 : v2, field.name) == field.get(both, field.name));
  for (const std::string& record : TpsiRecords(both.Comments().All())) Require(TpsiMilliseconds(record) >= 0);
  v1.Images().Add(kPath, "the file itself");
  Require(Attempt([&] { v2.ReadStreamInfo(kPath); }) || v2.Stream().StreamBitrate.empty());
}

// Its frame may come to stand elsewhere each time.
bool SetsOneFieldTwice(const TagChange& change) {
  std::set<const TagField*> fields;
  for (const auto& [field, text] : change.settings) fields.insert(field);
  return fields.size() < change.settings.size();
}

FileEnds EndsOf(const Bytes& content) {
  MemoryFile file(content);
  return FindEnds(file);
}

}  // namespace

// What is to become of a file's tags, then the file. A change that was worked out leaves every byte outside the two
// tags alone, and it is there when the file is read again; set once more, it changes nothing.
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
  CheckCommit(*system, content, write, written);
  CheckReading(after, tag);
  // What stood before or behind a removed tag may look like another one.
  if (change.settings.empty()) {
    Require(!change.remove_v1 || ends.old_head + ends.old_tail > 0 || !tag.HasID3v1());
  } else if (change.settings.size() == 1 && !change.remove_v2) {
    const auto& [field, text] = change.settings.front();
    Require(field->in_v1 ? tag.HasID3v1() : tag.HasID3v2());
    if (!field->in_v1) Require(field->get(tag, field->name) == text);
  }
  const bool strips = change.remove_v1 || change.remove_v2;
  if (!change.Adds() && !strips && !SetsOneFieldTwice(change))
    Require(PlanTagChange(after, kPath, change).ChangesNothing());
  return 0;
}
