#include "engine/system.h"

#include <utility>

#include "platform/failure.h"
#include "platform/memory_settings_store.h"
#include "platform/no_startup_entries.h"
#include "platform/program.h"
#include "settings/application.h"

namespace qublet {
namespace {

std::unique_ptr<SettingsStore> StoreFor(System::Traces traces) {
  if (traces == System::Traces::kLeavesNothing) return std::make_unique<MemorySettingsStore>();
  return OpenSettingsStore();
}

std::unique_ptr<StartupEntries> StartupEntriesFor(System::Traces traces, const FileSystem& files) {
  if (traces == System::Traces::kLeavesNothing) return std::make_unique<NoStartupEntries>();
  return OpenStartupEntries(files);
}

}  // namespace

System::System(Traces traces, StartupIds startup_ids)
    : files(OpenFileSystem()),
      store_(StoreFor(traces)),
      startup_(StartupEntriesFor(traces, *files)),
      clock_(std::make_unique<SystemClock>()),
      shell_(OpenShell(*files, std::move(startup_ids))),
      random_(std::make_unique<SystemRandom>()),
      collation_(OpenCollation()),
      associations_(OpenAssociations(*files)),
      players_(OpenPlayerWindows()),
      power_(OpenPower()) {}

Services System::With(Dialogs& dialogs, Feedback& feedback) const {
  return {*files,
          *store_,
          *startup_,
          dialogs,
          *clock_,
          *shell_,
          *random_,
          *collation_,
          *associations_,
          *players_,
          *power_,
          feedback,
          SocketsTo(kWebPort),
          OpenMachineValues()};
}

Session::Places System::FindPlaces() const {
  Session::Places places{AppKey(), ""};
  ResumeNext([&] { places.program_folder = ProgramFolder(*files); });
  ResumeNext([&] { places.program = WindowProgram(*files); });
  places.companions = CompanionFolders(*files);
  return places;
}

Session::Places System::FindPlacesOfWindow() const {
  Session::Places places = FindPlaces();
  ResumeNext([&] { places.recovery = OwnFolderOfUser(*files); });
  return places;
}

}  // namespace qublet
