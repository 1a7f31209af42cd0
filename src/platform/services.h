#pragma once

#include "platform/associations.h"
#include "platform/clock.h"
#include "platform/collation.h"
#include "platform/dialogs.h"
#include "platform/feedback.h"
#include "platform/file_system.h"
#include "platform/machine_values.h"
#include "platform/player_window.h"
#include "platform/power.h"
#include "platform/random.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "platform/socket.h"
#include "platform/startup_entry.h"

namespace qublet {

// What the program needs of its surroundings, made once at the start. Who uses three of them or more takes the whole;
// a free rule names what it needs. All of them outlive whoever is given them.
struct Services {
  FileSystem& files;
  SettingsStore& store;
  StartupEntries& startup;
  Dialogs& dialogs;
  const Clock& clock;
  Shell& shell;
  Random& random;
  const Collation& collation;
  const Associations& associations;
  PlayerWindows& players;
  Power& power;
  Feedback& feedback;
  Sockets sockets;
  MachineValues machine_values;
};

}  // namespace qublet
