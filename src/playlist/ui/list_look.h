#pragma once

#include "playlist/ui/row_list.h"
#include "settings/schemes/look.h"

namespace qublet {

// Colours, font and grid lines of the list. Colours of the desktop follow it from light to dark; for a font that
// isn't there another is shown.
void ApplyLook(const Look& look, RowList& list);
// The font of a look, with the look's traits.
QFont FontOf(const Look& look);

}  // namespace qublet
