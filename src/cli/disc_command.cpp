#include "cli/disc_command.h"

#include <array>
#include <ostream>
#include <utility>

#include "generators/disc/compilation.h"
#include "generators/disc/disc_build.h"
#include "generators/disc/disc_icons.h"
#include "generators/disc/icon_file.h"
#include "platform/program.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

int Check(CommandContext& context) {
  int row = kUsualDiscSize;
  const Outcome taken = Attempt([&] {
    if (const auto text = TakeValue(context.arguments, "--capacity")) row = NumberOf<int>(*text, "--capacity");
    if (row < 0 || row >= static_cast<int>(kDiscSizes.size()))
      throw Failure("--capacity takes 0 to " + std::to_string(kDiscSizes.size() - 1));
  });
  if (!taken) return Complain(context.err, "disc: " + taken.Reason(), kWrongUse);
  if (!OnlyPaths(context, "disc")) return kWrongUse;
  if (context.arguments.size() != 1) return Complain(context.err, "disc: one folder is wanted", kWrongUse);

  const std::string& argument = context.arguments[0];
  CompilationCheck check;
  const Outcome found = Attempt([&] {
    Collection files;
    check = CheckCompilation(context.files, context.engine.services.feedback, FolderFromArgument(context, argument),
                             row, context.engine.thousands_separator, files);
  });
  if (!found) return Complain(context.err, argument + ": " + found.Reason(), kCouldNot);
  if (check.fits) return kDone;
  context.err << (check.refusal.empty() ? "no answer for this size" : ReplaceAll(check.refusal, "\r\n", "\n"))
              << "\n";
  return kCouldNot;
}

// A number is a drawing of ours, anything else an icon file. Throws Failure for one that can't be read.
void TakeIcon(CommandContext& context, const std::string& text, DiscPlan& plan) {
  plan.extras.chkAutoIcon = true;
  int number = 0;
  if (Attempt([&] { number = NumberOf<int>(text, "--auto-icon"); }) && number >= 1 && number <= kDiscIcons) {
    plan.icon = DiscIcon(number);
    return;
  }
  const std::string path = PathFromArgument(context.files, text);
  std::string bytes;
  ReadTextFile(context.files, path, bytes).OrThrow();
  const std::optional<IconPicture> picture = ReadIcon(bytes, kMostIconSide);
  if (!picture) throw Failure("it is no icon that can be read");
  if (LowerCase(GetExtension(path)) == ".ico") plan.icon_file = path;
  plan.icon = IconFileOf(std::array{*picture}).value_or("");
}

// The folder's last piece is the disc's name. False for the root of a drive, which has none.
bool Divide(const std::string& folder, DiscPlan& plan) {
  plan.CDROMLoc = folder.substr(folder.rfind('\\') + 1);
  plan.AssembleLoc = folder.substr(0, folder.size() - plan.CDROMLoc.size());
  return !plan.CDROMLoc.empty() && plan.AssembleLoc.ends_with('\\');
}

int Build(CommandContext& context) {
  Arguments& arguments = context.arguments;
  DiscPlan plan;
  plan.extras.chkCopyBrowser = TakeOption(arguments, "--browser");
  plan.extras.chkCreateTable = TakeOption(arguments, "--table");
  plan.extras.chkCreateAutorun = TakeOption(arguments, "--autorun");
  plan.extras.chkAutoBigList = TakeOption(arguments, "--auto-list");
  plan.extras.chkAutoIndex = TakeOption(arguments, "--auto-index");
  std::optional<std::string> icon;
  const Outcome taken = Attempt([&] { icon = TakeValue(arguments, "--auto-icon"); });
  if (!taken) return Complain(context.err, "disc: " + taken.Reason(), kWrongUse);
  if (!OnlyPaths(context, "disc")) return kWrongUse;
  if (arguments.size() != 1) return Complain(context.err, "disc: one folder is wanted", kWrongUse);

  std::string folder;
  const Outcome found = Attempt([&] { folder = FolderFromArgument(context, arguments[0]); });
  if (!found) return Complain(context.err, arguments[0] + ": " + found.Reason(), kCouldNot);
  if (folder.ends_with('\\')) folder.pop_back();
  if (!Divide(folder, plan)) return Complain(context.err, "disc: the root of a drive is no disc's folder", kWrongUse);
  const Outcome drawn = Attempt([&] {
    if (icon) TakeIcon(context, *icon, plan);
  });
  if (!drawn) return Complain(context.err, *icon + ": " + drawn.Reason(), kCouldNot);

  SetDefaultReport(plan.CDROMLoc, plan.ReportRec);
  const Engine& engine = context.engine;
  DiscWatch watch;
  watch.lblReport = [&](const std::string& text) { context.out << text << "\n"; };
  const DiscServices services{context.files, engine.services.feedback, engine.services.clock,
                              engine.thousands_separator, engine.program_folder};
  return BuildCompilation(services, plan, watch, [] {}).BuildOk ? kDone : kCouldNot;
}

}  // namespace

int DiscCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  const std::string what = arguments.empty() ? "" : arguments.front();
  if (what != "check" && what != "build") return Complain(context.err, "disc: check or build is wanted", kWrongUse);
  arguments.erase(arguments.begin());
  return what == "check" ? Check(context) : Build(context);
}

}  // namespace qublet
