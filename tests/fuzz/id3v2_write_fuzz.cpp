#include <string>

#include "fuzz/fuzz_input.h"
#include "media/id3/id3v2_tag.h"
#include "platform/failure.h"

using namespace qublet;

namespace {

constexpr const char* kIds[] = {"TIT2", "TYER", "TCON", "WXXX", "WOAR", "TXXX", "USLT"};
constexpr const char* kTexts[] = {"", "plain", "Größe", "Привет 😀", "a/b"};

RawTag Parsed(BytesView tag) {
  return ParseTag(*ParseTagHeader(tag), tag.subspan(TagHeader::kSize)).value();
}

// What is put back in as it came out changes nothing.
void PutBack(Id3v2Tag& tag) {
  const RawTag before = tag.Raw();
  for (const char* id : kIds) tag.SetFrame(id, tag.Frame(id));
  for (const auto description : kPropertyDescriptions) tag.SetProperty(description, tag.Property(description));
  tag.SetComments(tag.Comments());
  tag.SetPictures(tag.Pictures());
  Require(tag.Raw() == before);
}

// The frames of other ids are the same as before.
void RequireOthersKept(const RawTag& before, const RawTag& after, const std::string& id) {
  const auto others = [&](const RawTag& tag) {
    std::vector<RawFrame> frames;
    for (const RawFrame& frame : tag.frames) {
      const std::string_view shown = ShownId(frame);
      const bool year = id == "TYER" && (shown == "TDRC" || shown == "TDAT" || shown == "TIME");
      if (shown != id && !year) frames.push_back(frame);
    }
    return frames;
  };
  Require(others(before) == others(after) && before.tail == after.tail);
}

}  // namespace

// The first byte chooses the version, the second what is changed; the others are the frames of a tag.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const TagHeader header{2 + data[0] % 3, static_cast<std::uint8_t>(data[0] & 0xC0),
                         static_cast<std::uint32_t>(size - 2)};
  auto raw = ParseTag(header, {data + 2, size - 2});
  if (!raw) return 0;
  Id3v2Tag tag(std::move(*raw));
  PutBack(tag);

  const RawTag before = tag.Raw();
  const std::string id = kIds[data[1] % std::size(kIds)];
  const std::string text = kTexts[data[1] / std::size(kIds) % std::size(kTexts)];
  tag.SetFrame(id, text);
  RequireOthersKept(before, tag.Raw(), id);
  if (!text.empty()) Require(tag.Frame(id) == text);
  try {
    Bytes written = SerialiseTag(tag.Raw());
    Require(Parsed(written) == tag.Raw());
    const std::size_t extent = written.size() + data[1];
    Require(PadTag(written, extent) == (written.size() == extent));
    Require(Parsed(written) == tag.Raw());
  } catch (const Failure&) {
    // Broken frames at the end may come to look like others; such a tag isn't written.
  }
  return 0;
}
