#pragma once

#include <chrono>
#include <string>

#include "platform/dialogs.h"
#include "settings/application.h"

namespace qublet {

// Whether there is a newer version than this one. The maker's site has a file that says which is the newest.

// How long a server may take until a check that somebody waits for has failed.
inline constexpr std::chrono::seconds kUpdatePatience{20};

// "000200010093" for version 2.1.93. Throws Failure for numbers that no 16 bits hold.
std::string VersionText(const ProgramVersion& version = {});

std::string VersionFileAddress();

enum class UpdateAnswer {
  kFailed,   // what came is no version
  kCurrent,  // no newer one
  kNewer,
};
UpdateAnswer AnswerOf(const std::string& response, const ProgramVersion& version = {});
// What the user is told of it.
std::string UpdateMessage(UpdateAnswer answer);

// Tells what a response says: a newer version always, that there is none and a failure only when asked to (`Prompt`).
// True when it could be read.
bool CheckForUpdate(const std::string& response, bool Prompt, Dialogs& dialogs);

}  // namespace qublet
