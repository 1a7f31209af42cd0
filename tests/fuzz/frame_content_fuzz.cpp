#include "media/id3/frame_content.h"

#include "fuzz/fuzz_input.h"

using namespace qublet;

namespace {

constexpr FrameKind kKinds[] = {FrameKind::kText, FrameKind::kUrl, FrameKind::kUserText, FrameKind::kUserUrl,
                                FrameKind::kComment};

bool SameTexts(const FrameText& a, const FrameText& b) {
  return a.text == b.text && a.description == b.description && a.language == b.language;
}

void CheckText(FrameKind kind, BytesView content) {
  const auto text = DecodeFrameText(kind, content);
  if (!text) return;
  for (const int version : {3, 4}) {
    const Bytes bytes = EncodeFrameText(kind, *text, version);
    const auto again = DecodeFrameText(kind, bytes);
    Require(again && SameTexts(*again, *text));
    Require(EncodeFrameText(kind, *again, version) == bytes);
  }
}

// Of data that is no picture, what stands in front of it may be taken for one.
void CheckPicture(BytesView content) {
  const auto picture = DecodePicture(content);
  if (!picture) return;
  Require(picture->data.size() < content.size());
  const Bytes bytes = EncodePicture(*picture);
  const auto again = DecodePicture(bytes);
  Require(again.has_value());
  if (MimeTypeOf(picture->data) == "image/") return;
  Require(again->description == picture->description && again->mime_type == picture->mime_type);
  Require(again->type == picture->type && std::ranges::equal(again->data, picture->data));
}

}  // namespace

// What is read of a frame and written again is read as the same. The first byte chooses what the frame is.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const BytesView content(data + 1, size - 1);
  const std::size_t kind = data[0] % (std::size(kKinds) + 1);
  if (kind == std::size(kKinds)) {
    CheckPicture(content);
  } else {
    CheckText(kKinds[kind], content);
  }
  return 0;
}
