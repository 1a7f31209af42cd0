#include "cli/command_table.h"

#include <algorithm>
#include <array>
#include <ostream>

#include "cli/autocreate_command.h"
#include "cli/bookmarks_command.h"
#include "cli/completion_command.h"
#include "cli/disc_command.h"
#include "cli/list_command.h"
#include "cli/name_command.h"
#include "cli/play_command.h"
#include "cli/player_command.h"
#include "cli/plugins_command.h"
#include "cli/properties_command.h"
#include "cli/purge_command.h"
#include "cli/rename_command.h"
#include "cli/report_command.h"
#include "cli/restore_command.h"
#include "cli/save_command.h"
#include "cli/scheme_command.h"
#include "cli/search_command.h"
#include "cli/settings_command.h"
#include "cli/tag_command.h"
#include "cli/update_command.h"
#include "settings/application.h"

namespace qublet {
namespace {

// Every tool of the program has its row here.
constexpr std::array kCliCommands{
    CliCommand{"list", "list [--json] PATH...", "print the rows that files, folders and playlists give", ListCommand},
    CliCommand{"save", "save [--relative] [--replace] OUT PATH...", "write them into a playlist (.m3u or .m3u8)",
               SaveCommand},
    CliCommand{"play", "play PATH...", "have them opened in the program that opens playlists", PlayCommand},
    CliCommand{"player", "player [status | stop | jump SECONDS]", "ask or steer that program while it runs",
               PlayerCommand},
    CliCommand{"plugins", "plugins [list | run N PATH...]",
               "print the plug-ins (number, name, description, path), or hand files to one", PluginsCommand},
    CliCommand{"properties", "properties PATH...", "print counts, sizes and times of the whole list",
               PropertiesCommand},
    CliCommand{"name", "name FORMAT PATH", "print the playlist name that a naming format gives for a path",
               NameCommand},
    CliCommand{"tag", "tag [--json | --title] [--set FIELD=TEXT]... [--remove v1|v2]... FILE...",
               "print or change the tags of files", TagCommand},
    CliCommand{"tag",
               "tag [--comment DESCRIPTION=TEXT]... [--add-picture PICTURE DESCRIPTION]...\n"
               "      [--add-position H:MM:SS]... FILE...",
               "add comments, pictures and places in time to the tags of files", TagCommand},
    CliCommand{"tag", "tag --extract-pictures FOLDER FILE...", "write the pictures of files into a folder",
               TagCommand},
    CliCommand{"tag", "tag --positions [--json] FILE... | --goto N FILE",
               "print the places in time of files, or play a file from one of them", TagCommand},
    CliCommand{"tag", "tag --copy-from SOURCE FILE...",
               "give each file all that the tag editor shows of SOURCE's tags", TagCommand},
    CliCommand{"tag", "tag --attributes NAME=SET|CLR[,...] FILE...",
               "change attributes: normal, readonly, archive, system, hidden", TagCommand},
    CliCommand{"tag", "tag --history [--json] | --undo RUN",
               "print the runs that changed tags, or undo one: a number, or \"last\"", TagCommand},
    CliCommand{"purge",
               "purge --duplicates [--by name|folder|path] [--fold-case] [--all]\n"
               "        [--save OUT [--relative] [--replace]] PATH...",
               "print the rows that repeat others, or save the list without them", PurgeCommand},
    CliCommand{"purge", "purge --missing [--save OUT [--relative] [--replace]] PATH...",
               "print the rows whose file is missing, or save the list without them", PurgeCommand},
    CliCommand{"restore", "restore [--in FOLDER]... [--use-folders] [--save OUT [--relative] [--replace]] PATH...",
               "look for missing files on all drives or in folders, and print where they are", RestoreCommand},
    CliCommand{"rename",
               "rename [--rules FILE.rps] [--set FIELD=VALUE]... [--no-rules] [--rule FIND REPLACEMENT]...\n"
               "         [--reset-per-folder | --no-reset] [--dry-run] [--json] PATH...",
               "rename files by rules, or print what would become of them", RenameCommand},
    CliCommand{"rename", "rename [RULES] --try TEXT [--index N] [--total N] | --save-rules FILE.rps [--replace]",
               "print what the rules make of a name, or keep them", RenameCommand},
    CliCommand{"rename", "rename --history | --undo [RUN]", "print the runs that renamed files, or take one back",
               RenameCommand},
    CliCommand{"report",
               "report [--settings FILE.rpt] [--set FIELD=VALUE]... [--columns N,N,...] [--replace] OUT PATH...",
               "write a page about what the paths hold, or a table for an OUT that ends in .txt", ReportCommand},
    CliCommand{
        "report",
        "report [--settings FILE.rpt] [--set FIELD=VALUE]... [--columns N,N,...]\n         --save-settings FILE.rpt",
        "keep the settings of a report", ReportCommand},
    CliCommand{
        "disc", "disc check [--capacity ROW] FOLDER",
        "say whether a folder fits on a disc; ROW of 0 to 15 is a size: 100, 200, 400, 600, 640, 650, 680 (unless\n"
        "      given), 700, 800 Mb, 1, 2, 4, 8, 16, 18, 24 Gb",
        DiscCommand},
    CliCommand{
        "disc",
        "disc build [--browser] [--table] [--autorun] [--auto-icon FILE|N] [--auto-list] [--auto-index] FOLDER",
        "make a music disc of a folder: the program that shows it, a page, an icon, a playlist", DiscCommand},
    CliCommand{"autocreate", "autocreate [--in base|root|both | --to FOLDER] [--format F] [--dry-run] PATH...",
               "write a playlist for each folder: there, in the folder that all share, or in FOLDER",
               AutoCreateCommand},
    CliCommand{"bookmarks", "bookmarks list | show CATEGORY | add CATEGORY PATH... | remove CATEGORY",
               "print the categories of bookmarks or the lines of one, keep paths in one, or remove one",
               BookmarksCommand},
    CliCommand{"bookmarks", "bookmarks titles FILE PATH...",
               "write paths and titles into a player's bookmark file, and keep the old one as FILE.bak",
               BookmarksCommand},
    CliCommand{"scheme", "scheme list | save NAME|current FILE.dps [--replace] | apply NAME|FILE.dps",
               "print the looks of the list, keep one as a file, or make one the stored look", SchemeCommand},
    CliCommand{"search", "search [--in COLUMNS] [--case] TEXT PATH...",
               "print the rows that hold a text; COLUMNS of filename, folder, time, size, id, layer, bitrate,\n"
               "      samplerate, mode, parted by commas",
               SearchCommand},
    CliCommand{"update", "update", "ask the maker's site whether there is a newer version, for 20 seconds at most",
               UpdateCommand},
    CliCommand{"settings", "settings [list [--json] | get SECTION KEY | set SECTION KEY VALUE]",
               "print or change the stored settings", SettingsCommand},
    CliCommand{"completion", "completion bash|zsh|fish", "print what that shell needs to complete these commands",
               CompletionCommand},
};

void PrintHelp(std::ostream& out) {
  out << "Usage: qublet COMMAND ...\n\n";
  for (const CliCommand& command : kCliCommands) out << "  " << command.usage << "\n      " << command.help << "\n";
  out << "  --version\n      print the version\n  help\n      print this page\n\n"
         "Paths are native or in drive form (\"c:\\music\"). What could not be done ends with 1, wrong use with 2.\n";
}

}  // namespace

std::span<const CliCommand> CliCommands() {
  return kCliCommands;
}

int RunCommand(const Arguments& arguments, Engine& engine, PrintedDialogs& dialogs, std::ostream& out,
               std::ostream& err) {
  if (arguments.empty()) return Complain(err, "a command is wanted; see 'qublet help'", kWrongUse);
  const std::string& name = arguments.front();
  if (name == "help" || name == "--help") {
    PrintHelp(out);
    return kDone;
  }
  if (name == "--version") {
    const ProgramVersion version;
    out << "qublet " << version.major_number << "." << version.minor_number << "." << version.revision << "\n";
    return kDone;
  }
  const auto* const command =
      std::find_if(kCliCommands.begin(), kCliCommands.end(), [&](const CliCommand& row) { return name == row.name; });
  if (command == kCliCommands.end()) {
    return Complain(err, "no such command: " + name + "; see 'qublet help'", kWrongUse);
  }
  CommandContext context{{arguments.begin() + 1, arguments.end()},
                         engine,
                         dialogs,
                         engine.services.files,
                         engine.services.store,
                         out,
                         err};
  const int code = command->run(context);
  return code == kDone && context.incomplete ? kCouldNot : code;
}

}  // namespace qublet
