#include <tuple>

#include "fuzz/fuzz_input.h"
#include "media/id3/id3v2_tag.h"
#include "platform/code_page.h"
#include "platform/failure.h"

using namespace qublet;

namespace {

// Any text that a frame can hold.
std::string AnyText(Pieces& pieces) {
  std::string text = DecodeText(pieces.Text());
  return text.substr(0, text.find('\0'));
}

bool IsReserved(const std::string& description) {
  return std::ranges::find(kPropertyDescriptions, description) != std::end(kPropertyDescriptions);
}

std::vector<TagComment> AnyComments(Pieces& pieces) {
  std::vector<TagComment> comments;
  for (std::size_t count = pieces.UpTo(4); count > 0; --count) {
    TagComment comment{AnyText(pieces), AnyText(pieces), pieces.Byte() % 2 == 0 ? "" : "deu"};
    if (!IsReserved(comment.description)) comments.push_back(std::move(comment));
  }
  return comments;
}

std::vector<TagPicture> AnyPictures(Pieces& pieces) {
  std::vector<TagPicture> pictures;
  for (std::size_t count = pieces.UpTo(3); count > 0; --count) {
    const std::string description = AnyText(pieces);
    Bytes data = {'B', 'M'};
    Append(data, BytesView(pieces.Bytes(pieces.Byte())));
    pictures.push_back({description, "image/bmp", std::move(data)});
  }
  return pictures;
}

// New ones stand ahead of frames that others may stop at, so the order may be another. A picture that is there
// already keeps whatever it is called.
bool Same(std::vector<TagComment> a, std::vector<TagComment> b) {
  const auto parts = [](const TagComment& comment) { return std::tie(comment.description, comment.text); };
  std::ranges::sort(a, {}, parts);
  std::ranges::sort(b, {}, parts);
  return a == b;
}

bool Same(std::vector<TagPicture> a, std::vector<TagPicture> b) {
  const auto parts = [](const TagPicture& picture) { return std::tie(picture.description, picture.data); };
  std::ranges::sort(a, {}, parts);
  std::ranges::sort(b, {}, parts);
  return std::ranges::equal(a, b, {}, parts, parts);
}

RawTag Parsed(BytesView tag) {
  return ParseTag(*ParseTagHeader(tag), tag.subspan(TagHeader::kSize)).value();
}

}  // namespace

// Comments and pictures that are put into a tag, whatever stands in it, are what it holds then, and when it has been
// written and read again; they leave each other and the properties alone.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const int version = 2 + pieces.Byte() % 3;
  const std::vector<TagComment> comments = AnyComments(pieces);
  const std::vector<TagPicture> pictures = AnyPictures(pieces);
  const std::string_view rest = pieces.Rest();
  const TagHeader header{version, 0, static_cast<std::uint32_t>(rest.size())};
  auto raw = ParseTag(header, AsBytes(rest));
  if (!raw) return 0;
  Id3v2Tag tag(std::move(*raw));
  const std::vector<TagPicture> old_pictures = tag.Pictures();
  const std::string mood = tag.Property(kPropertyDescriptions[1]);
  const std::string title = tag.Frame("TIT2");

  tag.SetComments(comments);
  Require(Same(tag.Comments(), comments) && Same(tag.Pictures(), old_pictures));
  tag.SetPictures(pictures);
  Require(Same(tag.Comments(), comments) && Same(tag.Pictures(), pictures));
  Require(tag.Property(kPropertyDescriptions[1]) == mood && tag.Frame("TIT2") == title);
  ResumeNext([&] {
    const Bytes written = SerialiseTag(tag.Raw());
    const Id3v2Tag again(Parsed(written));
    Require(Same(again.Comments(), comments) && Same(again.Pictures(), pictures));
  });
  return 0;
}
