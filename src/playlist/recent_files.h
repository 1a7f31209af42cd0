#pragma once

#include <string>
#include <vector>

#include "settings/app_settings.h"

namespace qublet {

inline constexpr int kRecentMenuRoom = 20;

// Appends a path unless it is already there, then drops the oldest ones beyond `RCount`.
void AddRecentFile(std::vector<std::string>& recent, const std::string& path, const AppSettings& settings);

// Captions of the recent menu, newest first: a padded number, ": " and the path or its file name.
std::vector<std::string> RecentCaptions(const std::vector<std::string>& recent, const AppSettings& settings);

}  // namespace qublet
