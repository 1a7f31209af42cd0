#include "desk/desk.h"

#include "desk/placement.h"
#include "playlist/no_items.h"

namespace qublet {

int Desk::ShowModal(QDialog& form) const {
  PositionForm(main, form);
  return form.exec();
}

bool Desk::HasItems() const {
  if (engine.document.ListView1.Count() > 0) return true;
  ShowNoItemsMessage(engine.services.dialogs);
  return false;
}

}  // namespace qublet
