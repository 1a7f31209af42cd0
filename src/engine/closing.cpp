#include "engine/closing.h"

namespace qublet {

bool Closing::Ask() {
  if (!playlist_files_.PromptSaveFirst()) return false;
  session_.SetFormState(true);
  // What is still not saved after the question isn't wanted.
  document_.PlaylistChanged ? recovery_.Drop() : recovery_.Settle();
  return true;
}

void Closing::StoreUnasked() {
  KeepList();
  session_.SetFormState(true);
}

void Closing::KeepList() {
  // A list that is being read anew is empty for a while.
  const bool between = feedback_.Busy() && document_.ListView1.Count() == 0;
  if (!between) recovery_.Settle();
}

}  // namespace qublet
