#include "cli/plugins_command.h"

#include <ostream>

#include "cli/json_text.h"
#include "cli/list_command.h"
#include "player/plugins/plugins.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

int ListPlugins(const CommandContext& context, const Plugins& plugins) {
  for (std::int16_t number = 1; number <= kPluginCount; ++number) {
    const Plugin& plugin = plugins.Slot(number);
    if (plugin.Name.empty()) continue;
    context.out << number << "\t" << PlainValue(plugin.Name) << "\t" << PlainValue(plugin.Description) << "\t"
                << PlainValue(Trim(plugin.InstallPath)) << "\n";
  }
  return kDone;
}

// 0 for what is no number of a slot.
std::int16_t SlotNumber(const std::string& text) {
  std::int16_t number = 0;
  ResumeNext([&] { number = NumberOf<std::int16_t>(text, "run"); });
  return number >= 1 && number <= kPluginCount ? number : std::int16_t{0};
}

int RunPlugin(CommandContext& context, Plugins& plugins, std::int16_t number, const Arguments& paths) {
  const bool all_there = AddPaths(context, paths);
  if (!all_there && context.engine.document.ListView1.Count() == 0) return kCouldNot;
  context.engine.document.ListView1.SelectWhere([](int, const Row&) { return true; });
  plugins.plug_Click(number);
  return all_there && !context.dialogs.said_something ? kDone : kCouldNot;
}

}  // namespace

int PluginsCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "plugins: unknown option " + unknown, kWrongUse);
  Plugins plugins(context.engine);
  plugins.LoadPluginMenu();
  if (arguments.empty() || arguments == Arguments{"list"}) return ListPlugins(context, plugins);
  if (arguments[0] != "run" || arguments.size() < 3)
    return Complain(context.err, "plugins: list, or run with a number and a path, is wanted", kWrongUse);
  const std::int16_t number = SlotNumber(arguments[1]);
  if (number == 0) return Complain(context.err, "plugins: a number of 1 to 9 is wanted: " + arguments[1], kWrongUse);
  return RunPlugin(context, plugins, number, {arguments.begin() + 2, arguments.end()});
}

}  // namespace qublet
