#include "playlist/ui/menu_commands.h"

#include "playlist/statistics.h"
#include "playlist/ui/PlaylistStats.h"

namespace qublet {
namespace {

template <typename Owner>
struct Bindings {
  Commands& commands;
  Owner& owner;

  void operator()(CommandName command, void (Owner::*handler)()) const {
    commands.Bind(command, [&rules = owner, handler] { (rules.*handler)(); });
  }
};

}  // namespace

void AddFileCommands(Commands& commands, const Desk& desk) {
  const Bindings<PlaylistFiles> bind{commands, desk.engine.playlist_files};
  bind("MFileNew", &PlaylistFiles::MFileNew_Click);
  bind("MFileOpen", &PlaylistFiles::MFileOpen_Click);
  bind("MFileImport", &PlaylistFiles::MFileImport_Click);
  bind("MFileSave", &PlaylistFiles::MFileSave_Click);
  bind("MFileSaveAs", &PlaylistFiles::MFileSaveAs_Click);
  bind("MFileSaveRel", &PlaylistFiles::MFileSaveRel_Click);
}

void AddListCommands(Commands& commands, const Desk& desk) {
  const Bindings<ListCommands> bind{commands, desk.engine.list_commands};
  bind("MEditAddDir", &ListCommands::MEditAddDir_Click);
  bind("MEditRemove", &ListCommands::MEditRemove_Click);
  bind("MEditMoveUp", &ListCommands::MEditMoveUp_Click);
  bind("MEditMoveDown", &ListCommands::MEditMoveDown_Click);
  bind("MEditSelAll", &ListCommands::MEditSelAll_Click);
  bind("MEditSelFol", &ListCommands::MEditSelFol_Click);
  bind("MEditSelTop", &ListCommands::MEditSelTop_Click);
  bind("MEditSelBottom", &ListCommands::MEditSelBottom_Click);
  bind("MEditSelInv", &ListCommands::MEditSelInv_Click);
  bind("MEditSelAlt", &ListCommands::MEditSelAlt_Click);
  bind("MEditSelRnd", &ListCommands::MEditSelRnd_Click);
  bind("MEditSelShuffle", &ListCommands::MEditSelShuffle_Click);
  bind("MEditSelLoc", &ListCommands::MEditSelLoc_Click);
  bind("MEditSelImpFol", &ListCommands::MEditSelImpFol_Click);
  bind("MEditSeMarkBlue", &ListCommands::MEditSeMarkBlue_Click);
  bind("MEditSeMarkGreen", &ListCommands::MEditSeMarkGreen_Click);
  bind("MEditSeMarkRed", &ListCommands::MEditSeMarkRed_Click);
  bind("MEditSeUnMark", &ListCommands::MEditSeUnMark_Click);
  bind("MEditSelectMark", &ListCommands::MEditSelectMark_Click);
  bind("MEditFileInfo", &ListCommands::MEditFileInfo_Click);
  bind("Mreloc", &ListCommands::Mreloc_Click);
  bind("MToolsShortCutFind", &ListCommands::MToolsShortCutFind_Click);
  bind("MToolsShortCutExplore", &ListCommands::MEditSelLoc_Click);
  bind("MToolsShortCutVolume", &ListCommands::MToolsShortCutVolume_Click);

  const Bindings<Items> bind_items{commands, desk.engine.items};
  bind_items("MEditSelNone", &Items::MEditSelNone_Click);
  bind_items("MViewRefresh", &Items::MViewRefresh_Click);
}

void AddSorts(Commands& commands, const Desk& desk) {
  const auto bind = [&](CommandName command, int column) {
    commands.Bind(command, [&list = desk.engine.list_commands, column] { list.ListView1_ColumnClick(column); });
  };
  bind("MViewSortFilename", 1);
  bind("MViewSortTime", 2);
  bind("MViewSortSize", 3);
  bind("MViewSortFolder", 4);
  bind("MViewSortID", 5);
  bind("MViewSortLayer", 6);
  bind("MViewSortBitrate", 7);
  bind("MViewSortSamplerate", 8);
  bind("MViewSortMode", 9);
  bind("MViewSortOrig", 12);
}

void AddPlaylistStats(Commands& commands, const Desk& desk) {
  commands.Bind("MViewDetails", [&desk] {
    if (!desk.HasItems()) return;
    const Engine& engine = desk.engine;
    PlaylistStats window(
        [&engine] {
          return GatherStatistics(engine.document, engine.services.files, engine.services.associations,
                                  engine.program_folder);
        },
        engine.thousands_separator, &desk.main);
    desk.ShowModal(window);
  });
}

}  // namespace qublet
