#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"
#include "playlist/m3u_lines.h"

// Any bytes are a playlist, if a poor one: a line that is taken in is never empty, never holds an end of line and is
// text, whatever the bytes were.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<qublet::FileSystem> files = qublet::OpenFileSystem();
  for (const bool native : {false, true}) {
    std::vector<std::string> lines;
    const bool found = qublet::ReadPlaylistText(*files, qublet::TextOf(data, size), native, lines);
    qublet::Require(found == !lines.empty());
    for (const std::string& line : lines) {
      qublet::Require(!line.empty() && line.find_first_of("\r\n") == line.npos && qublet::IsValidUtf8(line));
    }
  }
  return 0;
}
