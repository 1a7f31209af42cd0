#include <algorithm>
#include <string>

#include "fuzz/fuzz_input.h"
#include "media/id3/id3v1.h"
#include "media/id3/text_encoding.h"

using namespace qublet;

namespace {

// The text that a field gives can be put back without a change; any other text is kept as far as it fits.
template <typename Get, typename Set>
void CheckField(Id3v1Tag& tag, const std::string& other, Get get, Set set) {
  const std::string before(AsText(tag.Raw()));
  (tag.*set)((tag.*get)());
  Require(AsText(tag.Raw()) == before);
  (tag.*set)(other);
  const std::string kept = (tag.*get)();
  (tag.*set)(kept);
  Require((tag.*get)() == kept);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const BytesView input(data, size);
  const BytesView head = input.first(std::min(size, Id3v1Tag::kSize));
  const std::string other = FromLatin1(input.subspan(head.size()));
  Id3v1Tag tag = Id3v1Tag::Parse(head).value_or(Id3v1Tag());
  CheckField(tag, other, &Id3v1Tag::Title, &Id3v1Tag::SetTitle);
  CheckField(tag, other, &Id3v1Tag::Artist, &Id3v1Tag::SetArtist);
  CheckField(tag, other, &Id3v1Tag::Album, &Id3v1Tag::SetAlbum);
  CheckField(tag, other, &Id3v1Tag::Year, &Id3v1Tag::SetYear);
  CheckField(tag, other, &Id3v1Tag::Comment, &Id3v1Tag::SetComment);
  tag.SetTrack(static_cast<std::uint8_t>(size));
  Require(tag.Track() == static_cast<std::uint8_t>(size));
  tag.Comment();
  return 0;
}
