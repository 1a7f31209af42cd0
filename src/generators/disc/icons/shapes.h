#pragma once

#include "generators/disc/icons/path.h"

namespace qublet::drawing {

// A note whose head is at that place; `height` is that of the whole note.
Path EighthNote(Point head, double height);
// Two notes under one beam, the left head at that place.
Path BeamedNotes(Point head, double height, double apart);
Path Heart(Point centre, double size);

}  // namespace qublet::drawing
