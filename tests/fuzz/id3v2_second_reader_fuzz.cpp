#include <algorithm>
#include <iterator>

#include "fuzz/fuzz_input.h"
#include "media/id3/id3v2_tag.h"
#include "platform/failure.h"
#include "support/second_reader.h"

using namespace qublet;

namespace {

struct Edit {
  const char* id;
  const char* text;
};
constexpr Edit kEdits[] = {{"TIT2", "x"},
                           {"TIT2", ""},
                           {"TALB", "An album with a longer name"},
                           {"TYER", "2011"},
                           {"WOAR", "http://"},
                           {"TXXX", "mine"},
                           {"USLT", "la la"},
                           {"MusicMatch_Mood", "Wild"}};

// Frames that the edit may make, change or take away.
bool IsMeant(const SeenFrame& frame, std::string_view id) {
  if (id == "MusicMatch_Mood") return frame.id.starts_with("COM");
  if (id == "TYER")
    return frame.id.starts_with("TYE") || frame.id == "TDRC" || frame.id.starts_with("TDA") ||
           frame.id.starts_with("TIM");
  constexpr std::pair<std::string_view, std::string_view> kOldIds[] = {
      {"TIT2", "TT2"}, {"TALB", "TAL"}, {"WOAR", "WAR"}, {"TXXX", "TXX"}, {"USLT", "ULT"}};
  for (const auto& [newer, old] : kOldIds) {
    if (id == newer) return frame.id == newer || frame.id.starts_with(old);
  }
  return false;
}

std::vector<SeenFrame> OtherFrames(BytesView tag, std::string_view id) {
  auto frames = SecondReader(AsText(tag)).Frames();
  std::erase_if(frames, [&](const SeenFrame& frame) { return IsMeant(frame, id); });
  return frames;
}

Bytes Whole(int version, BytesView body) {
  Bytes tag = {'I', 'D', '3', static_cast<std::uint8_t>(version), 0, 0};
  AppendNumber(tag, static_cast<std::uint32_t>(body.size()), 4, 7);
  Append(tag, body);
  return tag;
}

}  // namespace

// An edit never changes what another program sees of the other frames, or it is refused. The first byte chooses
// version and edit, the second how much room there is; the others are the frames of a tag.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const Bytes before = Whole(3 + data[0] % 2, {data + 2, size - 2});
  if (IsReadOtherwise(before)) return 0;  // refused
  const Edit& edit = kEdits[data[0] / 2 % std::size(kEdits)];
  Id3v2Tag tag(*ParseTag(*ParseTagHeader(before), BytesView(before).subspan(TagHeader::kSize)));
  const bool property = std::string_view(edit.id).starts_with("Music");
  property ? tag.SetProperty(edit.id, edit.text) : tag.SetFrame(edit.id, edit.text);
  try {
    const Bytes after = FittedTag(tag.Raw(), data[1] < 128 ? before.size() : std::size_t{data[1]} * 16);
    Require(OtherFrames(before, edit.id) == OtherFrames(after, edit.id));
  } catch (const Failure&) {
    // Refused.
  }
  return 0;
}
