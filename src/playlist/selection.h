#pragma once

#include "playlist/document.h"

namespace qublet {

// "&Remove Item": every selected row goes, and the list counts as changed if any did. Files on disk stay.
void RemoveSelectedRows(Document& document);

}  // namespace qublet
