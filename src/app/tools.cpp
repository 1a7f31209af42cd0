#include "app/tools.h"

#include "generators/autocreate/ui/add_autocreate.h"
#include "generators/bookmarks/ui/add_bookmarks.h"
#include "generators/disc/ui/add_disc.h"
#include "generators/report/ui/add_report.h"
#include "media/editor/ui/add_tag_editor.h"
#include "player/ui/play_commands.h"
#include "playlist/ui/menu_commands.h"
#include "settings/preferences/ui/add_preferences.h"
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
  AddTagEditor(commands, desk);
  AddPurge(commands, desk);
  AddRename(commands, desk);
  AddSearch(commands, desk);
  AddReport(commands, desk);
  AddDisc(commands, desk);
  AddAutoCreate(commands, desk);
  AddBookmarks(commands, desk);
  AddPreferences(commands, desk);
}

}  // namespace qublet
