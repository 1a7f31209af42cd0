#include "app/play_commands.h"

#include "playlist/no_items.h"
#include "playlist/statistics.h"
#include "playlist/ui/PlaylistStats.h"

namespace qublet {

PlayCommands::PlayCommands(Document& document, const AppSettings& settings, Items& items, Services services,
                           const std::string& program_folder)
    : document_(document),
      settings_(settings),
      items_(items),
      services_(services),
      program_folder_(program_folder),
      link_(document, {services.files, services.associations, services.players}, program_folder),
      preview_(document, items, {services.files, services.shell, services.dialogs, services.feedback},
               program_folder) {}

void PlayCommands::DetectPlayer(const MenuEntries& entries) {
  link_.PlayerAssociated = link_.DetectPlayer();
  for (const char* name : {"MToolsWinamp", "s101"})
    entries.value(QString::fromUtf8(name))->setVisible(link_.PlayerAssociated);
}

void PlayCommands::Play(PreviewMode mode) {
  std::int16_t number = mode;
  preview_.PrevM3U(number);
}

void PlayCommands::PlayDoubleClicked() {
  Play(settings_.DBLCLKACTN ? kPlaySelected : kPlayFrom);
}

void PlayCommands::ShowProperties(QWidget* owner, const std::string& thousands_separator,
                                  const std::function<void(QWidget&)>& place) {
  if (document_.ListView1.Count() == 0) {
    ShowNoItemsMessage(services_.dialogs);
    return;
  }
  PlaylistStats window(
      [this] {
        return GatherStatistics(document_, items_, services_.files, services_.associations, program_folder_);
      },
      thousands_separator, owner);
  place(window);
  window.exec();
}

}  // namespace qublet
