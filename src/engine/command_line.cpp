#include "engine/command_line.h"

#include "platform/program.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// Stands for a double quote in a name between double quotes: no path in drive form holds a control character.
constexpr const char* kQuoteInName = "\x01";

void AddUnlessStopped(Items& items, const std::string& path) {
  if (!items.Stopped()) items.AddStuff(path, false);
}

}  // namespace

std::string CommandLineText(const FileSystem& files, const std::vector<std::string>& arguments) {
  std::string text;
  for (const std::string& argument : arguments) {
    std::string path;
    ResumeNext([&] { path = PathFromArgument(files, argument); });
    text += (text.empty() ? "\"" : " \"") + ReplaceAll(path, "\"", kQuoteInName) + "\"";
  }
  return text;
}

bool OpenCommandLineQuoted(Items& items, const std::string& text) {
  const std::vector<std::string> pieces = Split(text, '"');
  // Every second piece stands between a pair of quotes; behind a lone last quote there is no pair.
  for (std::size_t i = 1; i + 1 < pieces.size(); i += 2)
    AddUnlessStopped(items, ReplaceAll(pieces[i], kQuoteInName, "\""));
  return true;
}

bool OpenCommandLineSplit(Items& items, const std::string& text) {
  for (const std::string& piece : Split(text, ' ')) AddUnlessStopped(items, Trim(piece));
  return true;
}

}  // namespace qublet
