#include "cli/arguments.h"

#include <algorithm>
#include <ostream>

#include "cli/json_text.h"
#include "platform/program.h"

namespace qublet {

bool TakeOption(Arguments& arguments, const std::string& option) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto rest = std::remove(arguments.begin(), end, option);
  const bool found = rest != end;
  arguments.erase(rest, end);
  return found;
}

std::optional<Arguments> TakeValues(Arguments& arguments, const std::string& option, std::size_t count) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto place = std::find(arguments.begin(), end, option);
  if (place == end) return std::nullopt;
  const auto first = place + 1;
  if (static_cast<std::size_t>(end - first) < count)
    throw Failure(option + (count == 1 ? " wants something behind it" : " wants more behind it"));
  const auto last = first + static_cast<std::ptrdiff_t>(count);
  Arguments values(first, last);
  arguments.erase(place, last);
  return values;
}

std::optional<std::string> TakeValue(Arguments& arguments, const std::string& option) {
  const auto values = TakeValues(arguments, option, 1);
  if (!values) return std::nullopt;
  if (TakeValues(arguments, option, 0)) throw Failure(option + " is given twice");
  return values->front();
}

std::string UnknownOption(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto place = std::find_if(arguments.begin(), end, [&](const std::string& text) {
    return text.size() > 1 && text[0] == '-' && !context.files.Attributes(text);
  });
  if (place != end) return *place;
  if (end != arguments.end()) arguments.erase(end);
  return "";
}

bool OnlyPaths(CommandContext& context, const std::string& command) {
  const std::string unknown = UnknownOption(context);
  if (unknown.empty() && !context.arguments.empty()) return true;
  Complain(context.err, command + (unknown.empty() ? ": a path is wanted" : ": unknown option " + unknown),
           kWrongUse);
  return false;
}

bool FlagOf(const std::string& text, const std::string& what) {
  if (text != "0" && text != "1") throw Failure(what + " wants 0 or 1, not " + text);
  return text == "1";
}

std::pair<std::string, std::string> FieldAndValue(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) throw Failure("--set wants FIELD=VALUE, not " + text);
  return {text.substr(0, equals), text.substr(equals + 1)};
}

std::string FileToWrite(const CommandContext& context, const std::string& argument, bool replace) {
  std::string path = PathFromArgument(context.files, argument);
  if (context.files.Attributes(path) && !replace) throw Failure("it exists; --replace replaces it");
  return path;
}

std::string FolderFromArgument(const CommandContext& context, const std::string& argument) {
  std::string folder = PathFromArgument(context.files, argument);
  const std::optional<unsigned> attributes = context.files.Attributes(folder);
  if (!attributes || (*attributes & kFolder) == 0) throw Failure("no such folder");
  return folder;
}

int Complain(std::ostream& err, const std::string& text, ExitCode code) {
  err << "qublet: " << PlainValue(text) << "\n";
  return code;
}

}  // namespace qublet
