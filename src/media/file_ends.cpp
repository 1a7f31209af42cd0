#include "media/file_ends.h"

#include <algorithm>
#include <string_view>

#include "media/mpeg_frame.h"

namespace qublet {
namespace {

constexpr std::size_t kChunk = 256 * 1024;
// A file has one tag in front, or two by mistake; more than this is a heap of forged ones.
constexpr int kMostTags = 100;
constexpr std::int64_t kMostInFront = 64 * 1024;  // bytes ahead of a tag
constexpr auto kId3v1Size = static_cast<std::int64_t>(Id3v1Tag::kSize);
constexpr auto kId3v1MostCut = static_cast<std::int64_t>(Id3v1Tag::kMostCut);

// Some programs claim a footer that isn't there.
bool HasFooter(InputFile& file, std::int64_t offset, const TagHeader& header) {
  constexpr auto kSize = static_cast<std::int64_t>(TagHeader::kSize);
  return AsText(ReadBytes(file, offset + kSize + header.body_size, kSize)).starts_with("3DI");
}

std::optional<TagHeader> ReadHeader(InputFile& file, std::int64_t offset) {
  auto header = ParseTagHeader(ReadBytes(file, offset, TagHeader::kSize));
  if (header && header->ClaimsFooter() && !HasFooter(file, offset, *header)) header->DropFooter();
  return header;
}

constexpr std::string_view kApeMark = "APETAGEX";

// Behind an APE tag that the file begins with, else 0.
std::int64_t EndOfFirstApeTag(InputFile& file) {
  constexpr std::int64_t kHeaderSize = 32;
  const Bytes header = ReadBytes(file, 0, kHeaderSize);
  if (!AsText(header).starts_with(kApeMark) || header.size() < kHeaderSize) return 0;
  const std::int64_t rest = static_cast<std::int64_t>(header[12]) | header[13] << 8 | header[14] << 16 |
                            static_cast<std::int64_t>(header[15]) << 24;
  return kHeaderSize + rest <= file.Size() ? kHeaderSize + rest : 0;
}

bool IsFirstFrame(BytesView bytes) {
  const auto first = ParseFrameHeader(bytes);
  if (!first || static_cast<std::size_t>(first->Length()) > bytes.size()) return false;
  const auto second = ParseFrameHeader(bytes.subspan(static_cast<std::size_t>(first->Length())));
  return second && InOneStream(*first, *second);
}

// A header of which every byte makes sense, as it has to where it isn't the first thing in a file.
bool IsPlausible(const TagHeader& header) {
  constexpr std::uint8_t kUnusedFlags = 0x0F;
  return header.version >= 2 && header.version <= 4 && (header.flags & kUnusedFlags) == 0 && header.body_size > 0;
}

// Size of the ID3v1 tag at the end: 128 bytes, or up to four less where a program has cut the year short; 0 for none.
std::int64_t SizeOfId3v1(InputFile& file, std::int64_t room) {
  // An APE tag's mark holds the three letters too.
  constexpr std::int64_t kInFront = 3;
  const std::int64_t length = std::min(room, kId3v1Size + kInFront);
  const Bytes bytes = ReadBytes(file, file.Size() - length, length);
  for (std::int64_t cut = 0; cut <= kId3v1MostCut; ++cut) {
    const std::int64_t start = static_cast<std::int64_t>(bytes.size()) - (kId3v1Size - cut);
    if (start < 0 || !Id3v1Tag::Parse(BytesView(bytes).subspan(static_cast<std::size_t>(start)))) continue;
    const auto in_front = static_cast<std::size_t>(std::min(start, kInFront));
    const bool ape = AsText(bytes).substr(static_cast<std::size_t>(start) - in_front).starts_with(kApeMark);
    if (!ape) return kId3v1Size - cut;
  }
  return 0;
}

// Not in a file of a few bytes, where its ID3v1 tag begins sooner.
bool HasRoomForHeader(InputFile& file) {
  const std::int64_t rest = file.Size() - static_cast<std::int64_t>(TagHeader::kSize);
  return rest >= kId3v1Size || SizeOfId3v1(file, file.Size()) <= rest;
}

// Where a tag stands behind other bytes, at most so many, none of which are audio; 0 when there is none. What looks
// like one in a text of the ID3v1 tag is none.
std::int64_t FindLaterHead(InputFile& file, std::int64_t most_in_front) {
  constexpr std::int64_t kTwoFrames = 4096;
  if (IsFirstFrame(ReadBytes(file, 0, kTwoFrames))) return 0;
  const std::int64_t start = EndOfFirstApeTag(file);
  const std::int64_t end = file.Size() - SizeOfId3v1(file, file.Size());
  const Bytes bytes =
      ReadBytes(file, start, std::min(most_in_front + static_cast<std::int64_t>(TagHeader::kSize), end - start));
  for (std::size_t at = 0; at + TagHeader::kSize <= bytes.size(); ++at) {
    const BytesView rest = BytesView(bytes).subspan(at);
    if (rest[0] == 0xFF && IsFirstFrame(rest)) return 0;
    if (rest[0] != 'I') continue;
    const auto header = ParseTagHeader(rest);
    if (header && IsPlausible(*header)) return start + static_cast<std::int64_t>(at);
  }
  return 0;
}

// A file as it will be with another tag in front, never written.
class WithHead : public InputFile {
 public:
  WithHead(InputFile& file, const FileEnds& ends, const Bytes& head)
      : file_(file), head_(head), start_(ends.head_start), moved_(ends.head_start + length() - ends.head_end) {}

  std::int64_t Size() const override { return file_.Size() + moved_; }
  std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
    std::size_t done = 0;
    while (done < buffer.size()) {
      const std::int64_t at = offset + static_cast<std::int64_t>(done);
      const std::size_t step = Piece(at, buffer.subspan(done));
      if (step == 0) break;
      done += step;
    }
    return done;
  }

 private:
  std::int64_t length() const { return static_cast<std::int64_t>(head_.size()); }
  std::size_t Piece(std::int64_t at, std::span<std::uint8_t> room) {
    if (at >= start_ + length()) return file_.ReadAt(at - moved_, room);
    const std::int64_t left = (at < start_ ? start_ : start_ + length()) - at;
    room = room.first(std::min(room.size(), static_cast<std::size_t>(left)));
    if (at < start_) return file_.ReadAt(at, room);
    std::copy_n(head_.begin() + static_cast<std::ptrdiff_t>(at - start_), room.size(), room.begin());
    return room.size();
  }

  InputFile& file_;
  const Bytes& head_;
  std::int64_t start_;
  std::int64_t moved_;
};

// What a change leaves alone.
struct Kept {
  std::int64_t offset;
  std::int64_t length;
};

Kept KeptPart(const InputFile& present, const EndsChange& change) {
  const std::int64_t offset = change.before + change.old_head;
  const std::int64_t length = present.Size() - offset - change.old_tail;
  if (length < 0) throw Failure("the ends of a file overlap");
  return {offset, length};
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
  const std::int64_t audio = change.before + head;
  Check(written.Size() == audio + kept.length + tail);
  CheckEqual(present, 0, written, 0, change.before);
  Check(HoldsAt(written, change.before, change.head));
  Check(HoldsAt(written, audio + kept.length, change.tail));
  CheckEqual(present, kept.offset, written, audio, kept.length);
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
    throw Failure("its folder can't be written, and the audio would have to move");
  }
  const Bytes old = ReadBytes(present, change.before, change.old_head);
  Check(old.size() == head.size());
  const auto [first, old_first] = std::ranges::mismatch(head, old);
  const auto start = first - head.begin();
  auto end = static_cast<std::ptrdiff_t>(head.size());
  while (end > start && head[static_cast<std::size_t>(end) - 1] == old[static_cast<std::size_t>(end) - 1]) --end;
  return {change.before + start, Bytes(head.begin() + start, head.begin() + end)};
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
  // What couldn't be put back isn't changed.
  Check(old_head.bytes.size() == head.bytes.size() &&
        static_cast<std::int64_t>(old_tail.bytes.size()) == change.old_tail);

  const auto file = files.OpenInPlace(path);
  if (file->Size() != present.Size() || files.OpenForReading(path)->Version() != present.Version())
    throw ChangedMeanwhile();
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

Bytes ReadBytes(InputFile& file, std::int64_t offset, std::int64_t length) {
  if (offset < 0) return {};
  Bytes bytes(
      static_cast<std::size_t>(std::clamp<std::int64_t>(length, 0, std::max<std::int64_t>(file.Size() - offset, 0))));
  bytes.resize(file.ReadAt(offset, bytes));
  return bytes;
}

bool HoldsAt(InputFile& file, std::int64_t offset, BytesView bytes) {
  Bytes buffer(std::min(bytes.size(), kChunk));
  for (std::size_t done = 0; done < bytes.size();) {
    const std::span part = std::span(buffer).first(std::min(bytes.size() - done, kChunk));
    if (file.ReadAt(offset + static_cast<std::int64_t>(done), part) != part.size()) return false;
    if (!std::ranges::equal(part, bytes.subspan(done, part.size()))) return false;
    done += part.size();
  }
  return true;
}

FileEnds FindEnds(InputFile& file) {
  FileEnds ends;
  ends.size = file.Size();
  if (HasRoomForHeader(file)) ends.head = ReadHeader(file, 0);
  if (!ends.head) ends.head_start = FindLaterHead(file, kMostInFront);
  if (ends.head_start > 0) ends.head = ReadHeader(file, ends.head_start);
  if (!ends.head) ends.head_start = 0;  // cut off since it was found
  if (ends.head) ends.head_end = ends.head_start + ends.head->Extent();
  ends.id3v1_size = SizeOfId3v1(file, ends.HeadFits() ? ends.size - ends.head_end : ends.size - ends.head_start);
  ends.heads_end = ends.head_end;
  for (int tags = 1; ends.head && tags < kMostTags; ++tags) {
    const auto next = ReadHeader(file, ends.heads_end);
    if (!next || ends.heads_end + next->Extent() > ends.size - ends.id3v1_size) break;
    ends.heads_end += next->Extent();
  }
  return ends;
}

bool HasHeadOutOfReach(InputFile& file, const FileEnds& ends) {
  return !ends.head && FindLaterHead(file, 16 * 1024 * 1024) > 0;
}

bool IsHeadFoundAgain(InputFile& file, const FileEnds& ends, const Bytes& head) {
  if (ends.head_start == 0) return true;
  WithHead changed(file, ends, head);
  return FindEnds(changed).head_start == ends.head_start;
}

std::optional<RawTag> ReadHead(InputFile& file, const FileEnds& ends) {
  if (!ends.head) return std::nullopt;
  const std::int64_t start = ends.head_start + static_cast<std::int64_t>(TagHeader::kSize);
  // A tag that claims too much ends where the other one begins.
  const std::int64_t room = ends.size - ends.id3v1_size - start;
  return TakeTag(*ends.head, ReadBytes(file, start, std::min<std::int64_t>(ends.head->body_size, room)));
}

bool IsHeadReadOtherwise(InputFile& file, const FileEnds& ends) {
  if (!ends.head || !ends.HeadFits()) return false;
  return IsReadOtherwise(ReadBytes(file, ends.head_start, ends.head_end - ends.head_start));
}

std::optional<Id3v1Tag> ReadId3v1(InputFile& file, const FileEnds& ends) {
  if (ends.id3v1_size == 0) return std::nullopt;
  return Id3v1Tag::Parse(ReadBytes(file, ends.size - ends.id3v1_size, ends.id3v1_size));
}

void ReplaceEnds(const FileSystem& files, const std::string& path, InputFile& present, const EndsChange& change) {
  const Kept kept = KeptPart(present, change);
  const auto replacement = BeginIfFolderAllows(files, path);
  if (!replacement) return ChangeInPlace(files, path, present, change);
  replacement->ReplaceOnly(present.Version());
  if (change.before > 0) replacement->CopyFrom(present, 0, change.before);
  replacement->Write(change.head);
  replacement->CopyFrom(present, kept.offset, kept.length);
  replacement->Write(change.tail);
  const Outcome written = Attempt([&] { CheckWritten(*replacement->OpenWritten(), present, change, kept); });
  // What differs was changed behind its reading.
  if (!written && files.OpenForReading(path)->Version() != present.Version()) throw ChangedMeanwhile();
  written.OrThrow();
  replacement->Commit();
}

}  // namespace qublet
