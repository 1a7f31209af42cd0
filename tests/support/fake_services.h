#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/failure.h"
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
    return {files,
            store,
            startup,
            others,
            clock,
            shell,
            random,
            *collation,
            associations,
            players,
            power,
            feedback,
            [held = sockets] { return (*held)(); },
            [this](const std::string& key, const std::string& name) { return machine_values(key, name); }};
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
  // Held by whatever still asks a server when the test is over.
  std::shared_ptr<Sockets> sockets =
      std::make_shared<Sockets>([]() -> std::unique_ptr<Socket> { throw Failure("no network"); });
  MachineValues machine_values = [](const std::string&, const std::string&) { return std::optional<MachineValue>(); };
};

}  // namespace qublet
