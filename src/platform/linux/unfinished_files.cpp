#include "platform/linux/unfinished_files.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace qublet {
namespace {

struct Unfinished {
  int folder;
  std::string name;
  bool operator==(const Unfinished&) const = default;
};

// Of the process, as its end is.
struct InHand {
  std::timed_mutex mutex;
  std::vector<Unfinished> files;
};

// Never destroyed: a thread may still write while the process ends.
InHand& OfThisProcess() {
  static auto* const in_hand = new InHand;
  return *in_hand;
}

}  // namespace

WholeStep BeginWholeStep() {
  return WholeStep(OfThisProcess().mutex);
}

void NoteUnfinished(int folder, const std::string& name) {
  OfThisProcess().files.push_back({folder, name});
}

void ForgetUnfinished(int folder, const std::string& name) {
  std::erase(OfThisProcess().files, Unfinished{folder, name});
}

void DeleteUnfinished() {
  // A step that takes longer hangs, on a server that is gone perhaps.
  constexpr auto kPatience = std::chrono::seconds(2);
  WholeStep last(OfThisProcess().mutex, kPatience);
  if (!last) return;
  for (const Unfinished& file : OfThisProcess().files) unlinkat(file.folder, file.name.c_str(), 0);
  last.release();
}

}  // namespace qublet
