#include "fuzz/fuzz_input.h"
#include "playlist/paths/playlist_name.h"
#include "playlist/paths/text.h"
#include "support/stopped_clock.h"

using namespace qublet;

namespace {

bool HoldsToken(const std::string& text) {
  return Contains(text, "%");
}

}  // namespace

// A format and a path, parted by the first zero: the name is one that a file can bear, its levels aside nothing else
// is left out, and it doesn't grow without end.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = TextOf(data, size);
  const std::string wanted(text.substr(0, text.find('\0')));
  const std::string path(text.substr(std::min(wanted.size() + 1, size)));
  std::string format = wanted;
  const std::string name = MakePlaylistName(format, path, StoppedClock());
  Require(name.empty() ? format.empty() : name == format + ".m3u");
  Require(name.find_first_of(":\\/") == name.npos);
  Require(CharacterCount(name) <= 2 * 32766 + 4);
  if (!wanted.empty() && !HoldsToken(wanted) && CharacterCount(path) <= 32766) {
    std::string plain = Trim(wanted);
    std::erase_if(plain, [](char c) { return c == ':' || c == '\\' || c == '/'; });
    Require(format == plain);
  }
  // One level of a path without tokens stands in the name as it is.
  if (wanted == "%0" && !HoldsToken(path) && CharacterCount(path) <= 32766) {
    std::string piece = Trim(path.substr(path.rfind('\\') + 1));
    std::erase_if(piece, [](char c) { return c == ':' || c == '/'; });
    Require(format == piece);
  }
  return 0;
}
