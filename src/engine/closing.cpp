#include "engine/closing.h"

namespace qublet {

bool Closing::Ask() {
  if (!MayLeave()) return false;
  StoreAnswered();
  return true;
}

void Closing::StoreAnswered() {
  session_.SetFormState(true);
  // What is still not saved after the question isn't wanted.
  document_.PlaylistChanged ? recovery_.Drop() : recovery_.Settle();
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
