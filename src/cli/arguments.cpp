#include "cli/arguments.h"

#include <algorithm>
#include <ostream>

#include "platform/drive_form.h"
#include "playlist/paths/text.h"

namespace qublet {

bool TakeOption(Arguments& arguments, const std::string& option) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto place = std::find(arguments.begin(), end, option);
  if (place == end) return false;
  arguments.erase(place);
  return true;
}

std::string UnknownOption(Arguments& arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto place =
      std::find_if(arguments.begin(), end, [](const std::string& text) { return text.size() > 1 && text[0] == '-'; });
  if (place != end) return *place;
  if (end != arguments.end()) arguments.erase(end);
  return "";
}

std::string PathFromArgument(const FileSystem& files, const std::string& argument) {
  const bool drive_form = HasDrive(argument) && (argument.size() == 2 || argument[2] == '\\');
  return drive_form ? ReplaceAll(argument, "/", "\\") : files.FromNative(argument);
}

bool OnlyPaths(CommandContext& context, const std::string& command) {
  const std::string unknown = UnknownOption(context.arguments);
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
