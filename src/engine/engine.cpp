#include "engine/engine.h"

#include <utility>

#include "platform/program.h"

namespace qublet {

Engine::Engine(const Services& system, const Session::Places& places, std::string separator)
    : services(system),
      program_folder(places.program_folder),
      program(places.program),
      thousands_separator(std::move(separator)),
      items(document, services.files, services.feedback, view, thousands_separator),
      playlist_files(document, items, settings, services, view),
      list_commands(document, items, settings, services, view),
      player(document, services, program_folder),
      preview(document, services, program_folder),
      recovery(document, services.files.OwnFiles(), places.recovery),
      session(document, settings, items, recovery, services, view, places),
      closing(document, playlist_files, recovery, session, services.feedback) {
  LoadDefaultSettings(settings, {});
  companion_folders_.push_back(program_folder);
  companion_folders_.insert(companion_folders_.end(), places.companions.begin(), places.companions.end());
}

std::string Engine::CompanionFile(const std::string& name) const {
  return FindCompanion(services.files, companion_folders_, name);
}

void Engine::Show(MainView& window, Session::Window& state) {
  view.Show(window);
  session.Show(state);
}

}  // namespace qublet
