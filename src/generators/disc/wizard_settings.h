#pragma once

#include <string>
#include <vector>

#include "engine/session.h"
#include "playlist/paths/collections.h"

namespace qublet {

inline constexpr int kUsualDiscIcon = 8;
inline constexpr int kCustomIcon = 0;
inline constexpr std::size_t kRecentDiscs = 5;

// What goes onto a disc besides the music: each with its box.
struct DiscExtras {
  bool chkCopyBrowser = false;
  bool chkCreateAutorun = false;
  bool chkAutoIcon = false;
  bool chkAutoBigList = false;
  bool chkAutoIndex = false;
  bool chkCreateTable = false;
};

// What the wizard keeps from one disc to the next.
struct DiscChoices {
  DiscExtras extras;
  std::string AssembleLoc;  // "\" at its end; "" for none
  int ImSize = 0;           // row of kDiscSizes
  int IconChooser = 0;      // kCustomIcon, or the number of an icon
  std::string IconFile;     // the custom icon's
  std::string ReportFile;   // settings of the page's report; "" for those that everyone has
  Collection recent;        // build folders, the newest first
};

// What the last disc left, in place of what stands in `choices`; a value that can't be read leaves what is there.
// False when no disc has been made yet. A root folder that has gone counts as none.
bool LoadWizardSettings(const Session& session, const FileSystem& files, DiscChoices& choices);
void SaveWizardSettings(Session& session, const DiscChoices& choices);

}  // namespace qublet
