#include "media/tag_object.h"

#include "media/id3/genre_names.h"

namespace qublet {
namespace {

void RefuseOverrun(const FileEnds& ends) {
  if (!ends.HeadFits()) throw Failure("the tag claims more than the file holds");
}

}  // namespace

void TagImages::Add(const std::string& file, const std::string& description) {
  const auto input = files_.OpenForReading(file);
  if (input->Size() > kMaxSyncSafe) throw Failure("too large for a tag", file);
  Bytes picture = ReadBytes(*input, 0, input->Size());
  const std::string mime_type = MimeTypeOf(picture);
  Append({description, mime_type, std::move(picture)});
}

void TagObject::PrepareFile(const std::string& /*path*/) {}

void TagObject::ReadTags(const std::string& path, bool with_stream) {
  ForgetV1();
  ForgetV2();
  stream_ = {};
  const auto file = files_.OpenForReading(path);
  version_ = file->Version();
  const FileEnds ends = FindEnds(*file);
  LoadV1(*file, ends);
  LoadV2(*file, ends);
  if (with_stream) stream_ = FindStreamInfo(*file).value_or(StreamFacts{});
}

void TagObject::ReadID3v1(const std::string& path) {
  ForgetV1();
  const auto file = files_.OpenForReading(path);
  LoadV1(*file, FindEnds(*file));
}

void TagObject::ReadID3v2(const std::string& path) {
  ForgetV2();
  const auto file = files_.OpenForReading(path);
  LoadV2(*file, FindEnds(*file));
}

void TagObject::ReadStreamInfo(const std::string& path) {
  stream_ = {};
  stream_ = qublet::ReadStreamInfo(*files_.OpenForReading(path));
}

void TagObject::ForgetV1() {
  has_v1_ = false;
  v1_ = {};
}

void TagObject::ForgetV2() {
  has_v2_ = false;
  v2_ = {};
  comments_.Clear();
  images_.Clear();
}

void TagObject::LoadV1(InputFile& file, const FileEnds& ends) {
  const auto tag = ReadId3v1(file, ends);
  has_v1_ = tag.has_value();
  if (tag) v1_ = *tag;
}

void TagObject::LoadV2(InputFile& file, const FileEnds& ends) {
  has_v2_ = ends.head.has_value();
  auto raw = ReadHead(file, ends);
  if (!raw) return;
  v2_ = Id3v2Tag(std::move(*raw));
  comments_.Assign(v2_.Comments());
  images_.Assign(v2_.Pictures());
}

Id3v2Tag TagObject::Composed() const {
  Id3v2Tag tag = v2_;
  tag.SetComments(comments_.All());
  tag.SetPictures(images_.All());
  return tag;
}

void TagObject::PlanID3v1(InputFile& file, const FileEnds& ends, TagStep step, EndsChange& change) const {
  const auto present = ReadId3v1(file, ends);
  const bool written = step == TagStep::kWrite;
  const bool same = written ? present && AsText(present->Raw()) == AsText(v1_.Raw()) : ends.id3v1_size == 0;
  if (same) return;
  RefuseOverrun(ends);
  change.old_tail = ends.id3v1_size;
  if (written) change.tail.assign(v1_.Raw().begin(), v1_.Raw().end());
}

void TagObject::PlanID3v2(InputFile& file, const FileEnds& ends, TagStep step, EndsChange& change) const {
  const std::int64_t extent = (step == TagStep::kWrite ? ends.head_end : ends.heads_end) - ends.head_start;
  Bytes head;
  if (step == TagStep::kWrite) {
    auto present = ReadHead(file, ends);
    if (ends.head && !present) throw Failure("its tag is of an unknown kind");
    if (HasHeadOutOfReach(file, ends)) throw Failure("its tag stands too far behind the start of the file");
    Id3v2Tag wanted = Composed();
    if (present && Upgraded(std::move(*present)) == wanted.Raw()) return;
    RefuseOverrun(ends);
    if (IsHeadReadOtherwise(file, ends)) throw Failure("other programs see other frames in its tag");
    wanted.EnsureNotEmpty();
    head = FittedTag(wanted.Raw(), static_cast<std::size_t>(extent));
    if (!IsHeadFoundAgain(file, ends, head)) throw Failure("its tag wouldn't be found again");
  }
  RefuseOverrun(ends);
  if (!ends.head && head.empty()) return;
  change.before = ends.head_start;
  change.old_head = extent;
  change.head = std::move(head);
}

TagWrite TagObject::Plan(const std::string& path, TagStep v1, TagStep v2) const {
  const auto file = files_.OpenForReading(path);
  const FileEnds ends = FindEnds(*file);
  TagWrite write;
  write.path = path;
  if (v1 != TagStep::kLeave) PlanID3v1(*file, ends, v1, write.change);
  if (v2 != TagStep::kLeave) write.id3v2 = Attempt([&] { PlanID3v2(*file, ends, v2, write.change); });
  KeepOldEnds(*file, write);
  return write;
}

void TagObject::Write(const std::string& path, TagStep v1, TagStep v2) {
  const TagWrite write = Plan(path, v1, v2);
  CommitTags(files_, write);
  if (v1 != TagStep::kLeave) has_v1_ = v1 == TagStep::kWrite;
  write.id3v2.OrThrow();
  if (v2 != TagStep::kLeave) has_v2_ = v2 == TagStep::kWrite;
}

std::string TagObject::GenreList() {
  std::string list;
  for (const std::string_view name : GenreNames()) list.append(list.empty() ? "" : "|").append(name);
  return list;
}

}  // namespace qublet
