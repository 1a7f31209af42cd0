#pragma once

#include "cli/arguments.h"

namespace qublet {

// "tag [--json] FILE...": the tags and stream facts of MP3 files and the comments of OGG files, a name and a value a
// line with a tab between, or one JSON object a file and line.
//
// "tag [--set FIELD=TEXT]... [--remove v1|v2]... FILE...": changes MP3 files. A field is one of the names that are
// printed: a frame id ("TIT2"), "Preference", "Mood", "Tempo", "Situation", or one that begins with "V1". The tag
// that a field belongs to is made where it is missing.
//
// "tag --title FILE...": the title that stands for a file elsewhere in the program, made from its tags.
//
// "tag --copy-from SOURCE FILE...": gives each file all that the tag editor shows of SOURCE's tags, as the window
// does by Paste and Update.
//
// "tag --attributes NAME=SET|CLR[,...] FILE...": changes attributes, of normal, readonly, archive, system, hidden.
//
// "tag --history [--json]" and "tag --undo RUN|last": the runs that changed tags, and one of them undone.
int TagCommand(CommandContext& context);

}  // namespace qublet
