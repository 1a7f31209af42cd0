#include "app/tools.h"

#include "generators/autocreate/ui/add_autocreate.h"
#include "generators/bookmarks/ui/add_bookmarks.h"
#include "generators/disc/ui/add_disc.h"
#include "generators/report/ui/add_report.h"
#include "help/ui/add_help.h"
#include "media/editor/ui/add_tag_editor.h"
#include "player/shutdown/ui/add_shutdown.h"
#include "player/ui/play_commands.h"
#include "playlist/ui/menu_commands.h"
#include "settings/about/ui/add_about.h"
#include "settings/preferences/ui/add_preferences.h"
#include "settings/tips/ui/add_tips.h"
#include "settings/update/ui/add_update.h"
#include "tools/purge/ui/add_purge.h"
#include "tools/rename/ui/add_rename.h"
#include "tools/search/ui/add_search.h"

namespace qublet {

// A line each.
void AddTools(Commands& commands, const Desk& desk) {
  AddFileCommands(commands, desk);
  AddListCommands(commands, desk);
  AddSorts(commands, desk);
  AddPlaylistStats(commands, desk);
  AddPlayCommands(commands, desk);
  AddShutdown(commands, desk);
  AddTagEditor(commands, desk);
  AddPurge(commands, desk);
  AddRename(commands, desk);
  AddSearch(commands, desk);
  AddReport(commands, desk);
  AddDisc(commands, desk);
  AddAutoCreate(commands, desk);
  AddBookmarks(commands, desk);
  AddPreferences(commands, desk);
  AddTips(commands, desk);
  AddUpdate(commands, desk);
  AddAbout(commands, desk);
  AddHelp(commands, desk);
}

}  // namespace qublet
