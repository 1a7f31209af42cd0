#include "engine/engine.h"

#include <utility>

namespace qublet {

Engine::Engine(const Services& system, const Session::Places& places, std::string separator)
    : services(system),
      program_folder(places.program_folder),
      thousands_separator(std::move(separator)),
      items(document, services.files, services.feedback, view, thousands_separator),
      playlist_files(document, items, settings, services, view),
      list_commands(document, items, settings, services, view),
      player(document, services, program_folder),
      preview(document, services, program_folder),
      recovery(document, services.files, places.recovery),
      session(document, settings, items, recovery, services, view, places),
      closing(document, playlist_files, recovery, session, services.feedback) {
  LoadDefaultSettings(settings, {});
}

void Engine::Show(MainView& window, Session::Window& state) {
  view.Show(window);
  session.Show(state);
}

}  // namespace qublet
