#pragma once

#include <cstddef>
#include <vector>

#include "media/id3/bytes.h"

namespace qublet {

// Where the frames of a tag stand in its bytes.

// Four letters or digits, three in ID3v2.2. Some programs put three-letter ids into later versions, filled up with a
// blank or a zero.
bool IsFrameId(BytesView id);

constexpr std::size_t FrameHeaderSize(int version) {
  return version == 2 ? 6 : 10;
}

struct FrameShape {
  std::size_t id_length;
  std::size_t size_length;
  unsigned bits_per_byte;
};

constexpr FrameShape ShapeOf(int version, bool sync_safe) {
  return version == 2 ? FrameShape{3, 3, 8} : FrameShape{4, 4, sync_safe ? 7u : 8u};
}

struct FrameWalk {
  std::vector<std::size_t> starts;
  std::size_t end = 0;      // of the last frame
  std::size_t named = 0;    // how many have a proper id
  std::size_t proven = 0;   // how many are too long for both forms of sizes to agree, and lead to a proper id
  bool clean = false;       // nothing but padding follows
  bool other_form = false;  // by the sizes that the version doesn't want
  bool mixed = false;       // more proper frames by those that it wants, where the others led nowhere
};

// A frame is worth more memory than its bytes, so their number has a limit; what follows is kept as the tail.
constexpr std::size_t kMostFrames = 50000;

// The frames by the sizes that the version wants, sync-safe ones in ID3v2.4 and plain ones before. Programs mistake
// one for the other, so the other form is taken where the wanted one doesn't get through and the other does: in 2.4
// with more proper frames, or with as many and an end that is exactly that of the last frame; in 2.2 never. An end
// that isn't clean is believed only if no more long frames speak for the wanted form.
//
// Something with an odd id counts as a frame when its size fits and the walk then comes to a clean end.
FrameWalk WalkFrames(BytesView body, int version);

// Whether bytes that the walk didn't get through end inside a proper frame, for a program that passes over odd ids.
bool EndsInCutFrame(BytesView tail, int version);

// Whether a program that goes by either form of sizes finds frames in what the walk of an ID3v2.4 tag didn't get
// through.
bool HoldsFramesToOthers(BytesView tail);

// Of a tag whose walk went by the other form of sizes: whether a program that passes over odd ids could take the
// wanted form for the better explanation.
bool LooksWantedToOthers(BytesView body, int version);

// How other programs come by the frames of an ID3v2.4 tag: whether one that goes by the sizes alone, or looks only
// from one frame to the next, could take plain sizes for the better explanation of these bytes.
bool LooksPlainToOthers(BytesView body);

}  // namespace qublet
