#pragma once

#include <charconv>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "cli/printed_dialogs.h"
#include "engine/engine.h"

namespace qublet {

// What the program ends with.
enum ExitCode : int { kDone = 0, kCouldNot = 1, kWrongUse = 2 };

using Arguments = std::vector<std::string>;

// What every command works with: its arguments (without the command's own name), the program, where it prints.
struct CommandContext {
  Arguments arguments;
  Engine& engine;
  PrintedDialogs& dialogs;  // those of the engine
  FileSystem& files;
  SettingsStore& store;
  std::ostream& out;
  std::ostream& err;
  bool incomplete = false;  // something was told that is left out, so that all isn't done
};

// Takes the option out of the arguments; True when it was there. What follows "--" is no option.
bool TakeOption(Arguments& arguments, const std::string& option);
// Takes an option and the `count` arguments behind it, whatever they look like; nothing when it isn't there (any
// more). Throws Failure when there are fewer.
std::optional<Arguments> TakeValues(Arguments& arguments, const std::string& option, std::size_t count);
// The one argument behind an option that may be given once. Throws Failure.
std::optional<std::string> TakeValue(Arguments& arguments, const std::string& option);
// The first argument that looks like an option, wasn't taken and names no file that is there; "" when there is none.
// Drops a "--" on the way.
std::string UnknownOption(CommandContext& context);

// True when there is at least one path and no unknown option; wrong use is told.
bool OnlyPaths(CommandContext& context, const std::string& command);

// The whole text as a number; `what` takes it. Throws Failure.
template <typename Number>
Number NumberOf(const std::string& text, const std::string& what) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) throw Failure(what + " takes no " + text);
  return number;
}
// "0" or "1". Throws Failure.
bool FlagOf(const std::string& text, const std::string& what);
// The parts of "FIELD=VALUE", which stands behind "--set". Throws Failure.
std::pair<std::string, std::string> FieldAndValue(const std::string& text);

// The file that the argument names, in drive form, as one to be written. Throws Failure when it is there and isn't to
// be replaced.
std::string FileToWrite(const CommandContext& context, const std::string& argument, bool replace);

// The folder that the argument names, in drive form. Throws Failure when it isn't there.
std::string FolderFromArgument(const CommandContext& context, const std::string& argument);

// Prints "qublet: ..." to `err`, in one line whatever names it holds, and gives the exit code back.
int Complain(std::ostream& err, const std::string& text, ExitCode code);

}  // namespace qublet
