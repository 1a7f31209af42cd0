#include "engine/command_line.h"

#include "playlist/paths/text.h"

namespace qublet {

std::string CommandLineText(const FileSystem& files, const std::vector<std::string>& native_paths) {
  std::string text;
  for (const std::string& path : native_paths) {
    ResumeNext([&] {
      const std::string quoted = "\"" + files.FromNative(path) + "\"";
      text += text.empty() ? quoted : " " + quoted;
    });
  }
  return text;
}

bool OpenCommandLineQuoted(Items& items, const std::string& text) {
  const std::vector<std::string> pieces = Split(text, '"');
  // Every second piece stands between a pair of quotes; behind a lone last quote there is no pair.
  for (std::size_t i = 1; i + 1 < pieces.size(); i += 2) items.AddStuff(pieces[i], false);
  return true;
}

bool OpenCommandLineSplit(Items& items, const std::string& text) {
  for (const std::string& piece : Split(text, ' ')) items.AddStuff(Trim(piece), false);
  return true;
}

}  // namespace qublet
