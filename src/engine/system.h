#pragma once

#include <memory>
#include <string>

#include "engine/session.h"
#include "platform/services.h"

namespace qublet {

// This machine's services, made once. Settings and the start-up entry are this user's, or for `kLeavesNothing` kept
// in memory and gone with the process.
class System {
 public:
  enum class Traces { kThisUsers, kLeavesNothing };

  // `startup_ids`: see OpenShell.
  explicit System(Traces traces = Traces::kThisUsers, StartupIds startup_ids = {});

  Services With(Dialogs& dialogs, Feedback& feedback) const;
  // Under which name this version's settings stand, and the folder for the program's own files.
  Session::Places FindPlaces() const;
  // The same with the folder of the recovery lists, which is made when missing.
  Session::Places FindPlacesOfWindow() const;

  const std::unique_ptr<FileSystem> files;

 private:
  std::unique_ptr<SettingsStore> store_;
  std::unique_ptr<StartupEntries> startup_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<Shell> shell_;
  std::unique_ptr<Random> random_;
  std::unique_ptr<Collation> collation_;
  std::unique_ptr<Associations> associations_;
  std::unique_ptr<PlayerWindows> players_;
  std::unique_ptr<Power> power_;
};

}  // namespace qublet
