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
  TagPicture picture;
  picture.data.resize(static_cast<std::size_t>(input->Size()));
  picture.data.resize(input->ReadAt(0, picture.data));
  picture.description = description;
  picture.mime_type = MimeTypeOf(picture.data);
  Append(std::move(picture));
}

void TagObject::PrepareFile(const std::string& /*path*/) {}

void TagObject::ReadTags(const std::string& path, bool with_stream) {
  ForgetV1();
  ForgetV2();
  stream_ = {};
  const auto file = files_.OpenForReading(path);
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

void TagObject::WriteID3v1(const std::string& path) {
  const auto file = files_.OpenForReading(path);
  const FileEnds ends = FindEnds(*file);
  const auto present = ReadId3v1(*file, ends);
  if (present && AsText(present->Raw()) == AsText(v1_.Raw())) return;
  const BytesView raw = v1_.Raw();
  RefuseOverrun(ends);
  ReplaceEnds(files_, path, *file, {0, 0, {}, ends.id3v1_size, Bytes(raw.begin(), raw.end())});
  has_v1_ = true;
}

void TagObject::RemoveID3v1(const std::string& path) {
  const auto file = files_.OpenForReading(path);
  const FileEnds ends = FindEnds(*file);
  if (ends.id3v1_size > 0) {
    RefuseOverrun(ends);
    ReplaceEnds(files_, path, *file, {0, 0, {}, ends.id3v1_size, {}});
  }
  has_v1_ = false;
}

void TagObject::WriteID3v2(const std::string& path) {
  const auto file = files_.OpenForReading(path);
  const FileEnds ends = FindEnds(*file);
  const auto present = ReadHead(*file, ends);
  if (ends.head && !present) throw Failure("its tag is of an unknown kind", path);
  if (HasHeadOutOfReach(*file, ends)) throw Failure("its tag stands too far behind the start of the file", path);
  Id3v2Tag wanted = Composed();
  if (present && Upgraded(*present) == wanted.Raw()) return;
  RefuseOverrun(ends);
  if (IsHeadReadOtherwise(*file, ends)) throw Failure("other programs see other frames in its tag", path);
  wanted.EnsureNotEmpty();
  const std::int64_t extent = ends.head_end - ends.head_start;
  ReplaceEnds(files_, path, *file,
              {ends.head_start, extent, FittedTag(wanted.Raw(), static_cast<std::size_t>(extent)), 0, {}});
  has_v2_ = true;
}

void TagObject::RemoveID3v2(const std::string& path) {
  const auto file = files_.OpenForReading(path);
  const FileEnds ends = FindEnds(*file);
  RefuseOverrun(ends);
  const std::int64_t extent = ends.heads_end - ends.head_start;
  if (ends.head) ReplaceEnds(files_, path, *file, {ends.head_start, extent, {}, 0, {}});
  has_v2_ = false;
}

std::string TagObject::GenreList() {
  std::string list;
  for (const std::string_view name : GenreNames()) list.append(list.empty() ? "" : "|").append(name);
  return list;
}

}  // namespace qublet
