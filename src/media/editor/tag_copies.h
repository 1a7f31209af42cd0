#pragma once

#include "media/editor/tag_form.h"

namespace qublet {

// What the two tags of a form have in common, copied from one to the other. Comments are in nobody's hands here.

void CopyFromId3v1(TagForm& form);
// A track is taken where it is a number, or in front of the first "/" where that piece is one. The genre is the first
// of the list whose name stands anywhere in the text, in whatever case.
void CopyFromId3v2(TagForm& form);

}  // namespace qublet
