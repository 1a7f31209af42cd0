#include "cli/scheme_command.h"

#include <ostream>

#include "platform/program.h"
#include "playlist/paths/numbers.h"
#include "settings/application.h"
#include "settings/schemes/look_file.h"

namespace qublet {
namespace {

int List(std::ostream& out) {
  for (const Scheme& scheme : Schemes()) {
    out << scheme.caption << '\t' << scheme.background << '\t' << scheme.text << '\t' << scheme.font << '\t'
        << NumberText(scheme.size) << '\t' << (scheme.grid ? "1" : "0") << '\n';
  }
  return kDone;
}

// With the defaults for what isn't stored.
AppSettings Stored(const CommandContext& context) {
  AppSettings settings;
  LoadDefaultSettings(settings, {});
  LoadSettings(context.store, AppKey(), settings, {});
  return settings;
}

int Save(CommandContext& context, const std::string& name, const std::string& target, bool replace) {
  const Scheme* const scheme = FindScheme(name);
  if (scheme == nullptr && name != "current") {
    return Complain(context.err, "scheme: no such scheme: " + name + "; 'qublet scheme list' prints them", kWrongUse);
  }
  const Outcome saved = Attempt([&] {
    const std::string path = FileToWrite(context, target, replace);
    WriteLook(context.files, path, scheme == nullptr ? LookOf(Stored(context)) : LookOf(*scheme)).OrThrow();
  });
  return saved ? kDone : Complain(context.err, target + ": " + saved.Reason(), kCouldNot);
}

int Apply(CommandContext& context, const std::string& name) {
  const Scheme* const scheme = FindScheme(name);
  const Outcome applied = Attempt([&] {
    Look look;
    const Look wanted =
        scheme == nullptr ? ReadLook(context.files, PathFromArgument(context.files, name)) : LookOf(*scheme);
    if (!TakeLook(wanted, look)) throw Failure("it holds no look");
    AppSettings settings;
    StoreLook(look, settings);
    context.store.SaveSettings(AppKey(), StoredLook(settings));
  });
  return applied ? kDone : Complain(context.err, name + ": " + applied.Reason(), kCouldNot);
}

}  // namespace

int SchemeCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const bool replace = TakeOption(arguments, "--replace");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "scheme: unknown option " + unknown, kWrongUse);
  const std::string verb = arguments.empty() ? "" : arguments[0];
  if (verb == "list" && arguments.size() == 1 && !replace) return List(context.out);
  if (verb == "save" && arguments.size() == 3) return Save(context, arguments[1], arguments[2], replace);
  if (verb == "apply" && arguments.size() == 2 && !replace) return Apply(context, arguments[1]);
  return Complain(context.err,
                  "scheme: list, save NAME|current FILE.dps [--replace] or apply NAME|FILE.dps is wanted", kWrongUse);
}

}  // namespace qublet
