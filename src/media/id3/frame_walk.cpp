#include "media/id3/frame_walk.h"

#include <algorithm>
#include <optional>

namespace qublet {
namespace {

bool IsPadding(BytesView bytes) {
  return std::ranges::all_of(bytes, [](std::uint8_t byte) { return byte == 0; });
}

// Below, both forms of a size are the same bytes.
constexpr std::size_t kFirstDifferingSize = 0x80;

// Size of the frame that these bytes begin with; nothing when they don't hold all of it.
std::optional<std::size_t> FittingSize(BytesView frame, int version, bool sync_safe) {
  const FrameShape shape = ShapeOf(version, sync_safe);
  const BytesView field = frame.subspan(shape.id_length, shape.size_length);
  if (sync_safe && !IsSyncSafe(field)) return std::nullopt;
  const std::size_t size = ReadNumber(field, shape.bits_per_byte);
  if (size > frame.size() - FrameHeaderSize(version)) return std::nullopt;
  return size;
}

FrameWalk WalkBySizes(BytesView body, int version, bool sync_safe) {
  const std::size_t header = FrameHeaderSize(version);
  const std::size_t id_length = ShapeOf(version, sync_safe).id_length;
  FrameWalk walk;
  std::optional<FrameWalk> before_odd_id;
  std::size_t last_size = 0;
  while (walk.starts.size() < kMostFrames && body.size() - walk.end >= header) {
    const BytesView frame = body.subspan(walk.end);
    const BytesView id = frame.first(id_length);
    if (IsPadding(id)) break;
    const bool proper = IsFrameId(id);
    if (proper && last_size >= kFirstDifferingSize) ++walk.proven;
    const auto size = FittingSize(frame, version, sync_safe);
    if (!size) break;
    if (!proper && !before_odd_id) before_odd_id = walk;
    walk.named += proper ? 1 : 0;
    walk.starts.push_back(walk.end);
    walk.end += header + *size;
    last_size = *size;
  }
  walk.clean = IsPadding(body.subspan(walk.end));
  return before_odd_id && !walk.clean ? *before_odd_id : walk;
}

// Goes on by the other form of sizes, where that leads to a clean end: tags hold frames of two programs.
void GoOn(FrameWalk& walk, BytesView body, int version, bool sync_safe) {
  const FrameWalk rest = WalkBySizes(body.subspan(walk.end), version, sync_safe);
  if (!rest.clean) return;
  for (const std::size_t start : rest.starts) walk.starts.push_back(walk.end + start);
  walk.named += rest.named;
  walk.end += rest.end;
  walk.clean = true;
  walk.mixed = rest.named > 0;
}

// Whether the last frame, and not some place in the padding, is where a walk ends. A text may end in a few zeros.
bool EndsWithItsLastFrame(BytesView last) {
  constexpr std::size_t kMostZeros = 3;
  return last.size() > kMostZeros && !IsPadding(last.last(kMostZeros + 1));
}

bool EndsWithItsLastFrame(const FrameWalk& walk, BytesView body) {
  return EndsWithItsLastFrame(body.first(walk.end).subspan(walk.starts.empty() ? 0 : walk.starts.back()));
}

// How far a program gets that passes over ids it doesn't know.
struct Reach {
  std::size_t named = 0;
  std::size_t whole = 0;  // those of them that don't run beyond the end
  bool clean = false;     // ends at the end of the bytes or in padding
  bool exact = false;     // clean, and with the last frame
  bool cut = false;       // ends inside a proper frame
};

Reach ReachBySizes(BytesView body, int version, unsigned bits_per_byte) {
  const FrameShape shape = ShapeOf(version, false);
  const std::size_t header = FrameHeaderSize(version);
  Reach reach;
  std::size_t at = 0;
  std::size_t last = 0;
  bool proper = false;
  while (at + header <= body.size()) {
    const BytesView frame = body.subspan(at);
    if (IsPadding(frame.first(shape.id_length))) break;
    last = at;
    proper = IsFrameId(frame.first(shape.id_length));
    reach.named += proper ? 1 : 0;
    const BytesView field = frame.subspan(shape.id_length, shape.size_length);
    const bool fits_nowhere = bits_per_byte == 7 && !IsSyncSafe(field);
    at = fits_nowhere ? body.size() + 1 : at + header + ReadNumber(field, bits_per_byte);
    reach.whole += proper && at <= body.size() ? 1 : 0;
  }
  reach.clean = at <= body.size();
  reach.exact = reach.clean && EndsWithItsLastFrame(body.subspan(last, at - last));
  reach.cut = proper && !reach.clean;
  return reach;
}

// Whether a program that counts proper frames takes the other form of sizes for the better explanation. Of as many
// frames it may want to see the `end` clean or exact.
bool IsBetter(const Reach& other, const Reach& own, std::size_t Reach::*count, bool Reach::*end, int version) {
  if (other.*count > own.*count) return version == 4 || other.clean;
  return other.*count == own.*count && other.*end && !own.clean;
}

bool HasIdAt(BytesView body, std::size_t at) {
  return at + 4 <= body.size() && IsFrameId(body.subspan(at, 4));
}

bool NextIdSaysPlain(BytesView body, std::size_t start) {
  const std::size_t header = FrameHeaderSize(4);
  const BytesView field = body.subspan(start + 4, 4);
  const std::size_t size = ReadNumber(field, 7);
  return size >= kFirstDifferingSize && !HasIdAt(body, start + header + size) &&
         HasIdAt(body, start + header + ReadNumber(field));
}

}  // namespace

bool IsFrameId(BytesView id) {
  const auto is_id_character = [](std::uint8_t c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
  const bool filled = id.size() == 4 && (id[3] == ' ' || id[3] == 0);
  return std::ranges::all_of(id.first(filled ? 3 : id.size()), is_id_character);
}

FrameWalk WalkFrames(BytesView body, int version) {
  const bool sync_safe = version == 4;
  FrameWalk own = WalkBySizes(body, version, sync_safe);
  if (own.clean || version == 2 || own.starts.size() == kMostFrames) return own;
  FrameWalk other = WalkBySizes(body, version, !sync_safe);
  const bool exact = other.clean && EndsWithItsLastFrame(other, body);
  const bool better = other.named > own.named ? version == 4 || other.clean : other.named == own.named && exact;
  // A content that looks like many small frames says less than one long frame that another follows.
  if (!better || (!other.clean && own.proven > other.proven)) return own;
  other.other_form = true;
  if (!other.clean) GoOn(other, body, version, sync_safe);
  return other;
}

// Of 2.4 by either form of sizes: which one the frame has can't be known.
bool EndsInCutFrame(BytesView tail, int version) {
  return ReachBySizes(tail, version, 8).cut || (version == 4 && ReachBySizes(tail, version, 7).cut);
}

bool HoldsFramesToOthers(BytesView tail) {
  return ReachBySizes(tail, 4, 8).named > 0 || ReachBySizes(tail, 4, 7).named > 0;
}

bool LooksWantedToOthers(BytesView body, int version) {
  const Reach own = ReachBySizes(body, version, version == 4 ? 7 : 8);
  const Reach other = ReachBySizes(body, version, version == 4 ? 8 : 7);
  return !IsBetter(other, own, &Reach::named, &Reach::exact, version) ||
         !IsBetter(other, own, &Reach::whole, &Reach::exact, version);
}

bool LooksPlainToOthers(BytesView body) {
  const Reach own = ReachBySizes(body, 4, 7);
  const Reach plain = ReachBySizes(body, 4, 8);
  if (IsBetter(plain, own, &Reach::named, &Reach::clean, 4)) return true;
  if (IsBetter(plain, own, &Reach::whole, &Reach::clean, 4)) return true;
  const FrameWalk walk = WalkBySizes(body, 4, true);
  return std::ranges::any_of(walk.starts, [&](std::size_t start) { return NextIdSaysPlain(body, start); });
}

}  // namespace qublet
