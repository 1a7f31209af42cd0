#pragma once

#include <mutex>
#include <string>

namespace qublet {

// The temporary files that this process has in hand, so that an end from outside takes them along.

// While one lives, such an end waits: what is made, noted, renamed and forgotten under it happens as a whole or not
// at all.
using WholeStep = std::unique_lock<std::timed_mutex>;
WholeStep BeginWholeStep();

// `folder` is open for as long as the file is noted. Under a WholeStep.
void NoteUnfinished(int folder, const std::string& name);
void ForgetUnfinished(int folder, const std::string& name);

// For who ends the process next: deletes what is noted. No WholeStep begins after this.
void DeleteUnfinished();

}  // namespace qublet
