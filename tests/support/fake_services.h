#pragma once

#include <memory>

#include "platform/services.h"
#include "support/fake_player.h"
#include "support/fake_power.h"
#include "support/fake_settings_store.h"
#include "support/fake_startup_entries.h"
#include "support/scripted_dialogs.h"
#include "support/scripted_random.h"
#include "support/scripted_shell.h"
#include "support/stopped_clock.h"

namespace qublet {

// The program's surroundings as a test says they are; only the files are real.
struct FakeServices {
  Services Over(FileSystem& files, Feedback& feedback) { return Over(files, feedback, dialogs); }
  Services Over(FileSystem& files, Feedback& feedback, Dialogs& others) {
    return {files, store, startup, others, clock, shell, random, *collation, associations, players, power, feedback};
  }

  FakeSettingsStore store;
  FakeStartupEntries startup;
  ScriptedDialogs dialogs;
  StoppedClock clock;
  ScriptedShell shell;
  ScriptedRandom random;
  std::unique_ptr<Collation> collation = OpenCollation();
  FakeAssociations associations;
  FakePlayerWindows players;
  FakePower power;
};

}  // namespace qublet
