#include "media/file_ends.h"

#include <algorithm>
#include <string_view>

namespace qublet {
namespace {

constexpr std::size_t kChunk = 256 * 1024;
// A file has one tag in front, or two by mistake; more than this is a heap of forged ones.
constexpr int kMostTags = 100;
constexpr auto kId3v1Size = static_cast<std::int64_t>(Id3v1Tag::kSize);

Bytes ReadBytes(InputFile& file, std::int64_t offset, std::int64_t length) {
  Bytes bytes(
      static_cast<std::size_t>(std::clamp<std::int64_t>(length, 0, std::max<std::int64_t>(file.Size() - offset, 0))));
  bytes.resize(file.ReadAt(offset, bytes));
  return bytes;
}

std::optional<TagHeader> ReadHeader(InputFile& file, std::int64_t offset) {
  return ParseTagHeader(ReadBytes(file, offset, TagHeader::kSize));
}

// An APE tag's "APETAGEX" holds the three letters too, where it happens to stand 131 bytes before the end.
bool EndsInId3v1(InputFile& file, std::int64_t size) {
  constexpr std::string_view kApe = "APETAGEX";
  constexpr std::int64_t kInFront = 3;
  const std::int64_t start = size - kId3v1Size;
  const std::int64_t in_front = std::min(start, kInFront);
  const Bytes bytes = ReadBytes(file, start - in_front, static_cast<std::int64_t>(kApe.size()) + in_front);
  const std::string_view text = AsText(bytes);
  return text.substr(static_cast<std::size_t>(in_front)).starts_with("TAG") && !text.starts_with(kApe);
}

// What a change leaves alone.
struct Kept {
  std::int64_t offset;
  std::int64_t length;
};

Kept KeptPart(const InputFile& present, const EndsChange& change) {
  const std::int64_t length = present.Size() - change.old_head - change.old_tail;
  if (length < 0) throw Failure("the ends of a file overlap");
  return {change.old_head, length};
}

void Check(bool equal) {
  if (!equal) throw Failure("the new version of a file isn't what was written");
}

void CheckEqual(InputFile& a, std::int64_t a_offset, InputFile& b, std::int64_t b_offset, std::int64_t length) {
  Bytes from_a(static_cast<std::size_t>(std::min<std::int64_t>(length, kChunk)));
  Bytes from_b(from_a.size());
  for (std::int64_t done = 0; done < length;) {
    const auto step = static_cast<std::size_t>(std::min<std::int64_t>(length - done, kChunk));
    Check(a.ReadAt(a_offset + done, std::span(from_a).first(step)) == step);
    Check(b.ReadAt(b_offset + done, std::span(from_b).first(step)) == step);
    Check(std::equal(from_a.begin(), from_a.begin() + static_cast<std::ptrdiff_t>(step), from_b.begin()));
    done += static_cast<std::int64_t>(step);
  }
}

void CheckWritten(InputFile& written, InputFile& present, const EndsChange& change, const Kept& kept) {
  const auto head = static_cast<std::int64_t>(change.head.size());
  const auto tail = static_cast<std::int64_t>(change.tail.size());
  Check(written.Size() == head + kept.length + tail);
  Check(ReadBytes(written, 0, head) == change.head);
  Check(ReadBytes(written, head + kept.length, tail) == change.tail);
  CheckEqual(present, kept.offset, written, head, kept.length);
}

// Nothing when the folder can't be written; any other trouble is a Failure.
std::unique_ptr<FileReplacement> BeginIfFolderAllows(const FileSystem& files, const std::string& path) {
  try {
    return files.BeginReplacement(path);
  } catch (const FolderRefusesWriting&) {
    return nullptr;
  }
}

struct Patch {
  std::int64_t offset;
  Bytes bytes;
};

// The bytes of a head that differ from the present ones, so that as little as possible is written.
Patch HeadPatch(InputFile& present, const EndsChange& change) {
  Bytes head = change.head;
  const bool fits = head.empty() || PadTag(head, static_cast<std::size_t>(change.old_head));
  if (!fits || static_cast<std::int64_t>(head.size()) != change.old_head) {
    throw Failure("the audio would have to move");
  }
  const Bytes old = ReadBytes(present, 0, change.old_head);
  Check(old.size() == head.size());
  const auto [first, old_first] = std::ranges::mismatch(head, old);
  const auto start = first - head.begin();
  auto end = static_cast<std::ptrdiff_t>(head.size());
  while (end > start && head[static_cast<std::size_t>(end) - 1] == old[static_cast<std::size_t>(end) - 1]) --end;
  return {start, Bytes(head.begin() + start, head.begin() + end)};
}

void Apply(InPlaceFile& file, const Patch& patch) {
  if (!patch.bytes.empty()) file.WriteAt(patch.offset, patch.bytes);
}

void ChangeInPlace(const FileSystem& files, const std::string& path, InputFile& present, const EndsChange& change) {
  const Kept kept = KeptPart(present, change);
  const Patch head = HeadPatch(present, change);
  const Patch tail{kept.offset + kept.length, change.tail};
  const Patch old_head{head.offset, ReadBytes(present, head.offset, static_cast<std::int64_t>(head.bytes.size()))};
  const Patch old_tail{tail.offset, ReadBytes(present, tail.offset, change.old_tail)};

  const auto file = files.OpenInPlace(path);
  try {
    Apply(*file, head);
    Apply(*file, tail);
    file->Truncate(tail.offset + static_cast<std::int64_t>(tail.bytes.size()));
    file->Flush();
  } catch (const Failure&) {
    ResumeNext([&] { Apply(*file, old_head); });
    ResumeNext([&] { Apply(*file, old_tail); });
    ResumeNext([&] { file->Truncate(present.Size()); });
    ResumeNext([&] { file->Flush(); });
    throw;
  }
}

}  // namespace

FileEnds FindEnds(InputFile& file) {
  FileEnds ends;
  ends.size = file.Size();
  ends.head = ReadHeader(file, 0);
  if (ends.head) ends.head_end = ends.head->Extent();
  ends.heads_end = ends.head_end;
  for (int tags = 1; ends.head && tags < kMostTags; ++tags) {
    const auto next = ReadHeader(file, ends.heads_end);
    if (!next || ends.heads_end + next->Extent() > ends.size) break;
    ends.heads_end += next->Extent();
  }
  const std::int64_t start = ends.size - kId3v1Size;
  const bool room = start >= 0 && (!ends.HeadFits() || start >= ends.head_end);
  ends.has_id3v1 = room && EndsInId3v1(file, ends.size);
  return ends;
}

std::optional<RawTag> ReadHead(InputFile& file, const FileEnds& ends) {
  if (!ends.head) return std::nullopt;
  constexpr auto kStart = static_cast<std::int64_t>(TagHeader::kSize);
  // A tag that claims too much ends where the other one begins.
  const std::int64_t room = ends.size - (ends.has_id3v1 ? kId3v1Size : 0) - kStart;
  return ParseTag(*ends.head, ReadBytes(file, kStart, std::min<std::int64_t>(ends.head->body_size, room)));
}

std::optional<Id3v1Tag> ReadId3v1(InputFile& file, const FileEnds& ends) {
  if (!ends.has_id3v1) return std::nullopt;
  return Id3v1Tag::Parse(ReadBytes(file, ends.size - kId3v1Size, kId3v1Size));
}

void ReplaceEnds(const FileSystem& files, const std::string& path, InputFile& present, const EndsChange& change) {
  const Kept kept = KeptPart(present, change);
  const auto replacement = BeginIfFolderAllows(files, path);
  if (!replacement) return ChangeInPlace(files, path, present, change);
  replacement->Write(change.head);
  replacement->CopyFrom(present, kept.offset, kept.length);
  replacement->Write(change.tail);
  CheckWritten(*replacement->OpenWritten(), present, change, kept);
  replacement->Commit();
}

}  // namespace qublet
