#include "cli/arguments.h"

#include <algorithm>
#include <ostream>

namespace qublet {

bool TakeOption(Arguments& arguments, const std::string& option) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto place = std::find(arguments.begin(), end, option);
  if (place == end) return false;
  arguments.erase(place);
  return true;
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

int Complain(std::ostream& err, const std::string& text, ExitCode code) {
  err << "qublet: " << text << "\n";
  return code;
}

}  // namespace qublet
