#pragma once

#include "platform/dialogs.h"
#include "platform/random.h"
#include "platform/shell.h"
#include "playlist/document.h"
#include "playlist/items.h"

namespace qublet {

// The row that a command on one row is about: the selected one where exactly one is, else the focused one; 0 when
// there is neither.
int CurrentRow(const RowStore& rows);

// Ways to a selection, the coloured marks, and what is done with the selected rows. Nothing here throws.

void SelectAll(RowStore& rows);
void InvertSelection(RowStore& rows);
// Of the selected rows the last goes, the one before it stays, and so on in turn.
void AlternateSelection(RowStore& rows);
// Each row with an even chance, whatever was selected, until about half of them are.
void SelectAtRandom(RowStore& rows, Random& random);
// Every row whose "Path" is the folder of a selected one; subfolders don't count.
void SelectInFolders(RowStore& rows);

// The mark of the selected rows becomes `icon`; a missing row keeps its own.
void SetRowMark(RowStore& rows, RowIcon icon);
// The marked rows, of any colour, and no others.
void SelectCheckMarked(RowStore& rows);

// Adds all that is in the folders of the selected rows, and below them, to the end of the list, whether or not it is
// there already. A folder is read as often as the rows come back to it.
void ImportFolders(const RowStore& rows, Items& items);
// The folder that the selected rows have in common; the current one where there is none.
std::string CommonFolder(const RowStore& rows, const FileSystem& files);
// What the system knows of the current row's file; nothing when there is no such row.
void ShowCurrentProperties(Document& document, Shell& shell);

// "&Remove Item": every selected row goes, and the list counts as changed if any did. Files on disk stay.
void RemoveSelectedRows(Document& document);
// "Replace/Relocate...": asks for a file, whose row takes the place of the current one. What can't be added is told,
// and the old row stays. False when the user cancelled or there is no such row.
bool ReplaceCurrentRow(Document& document, Items& items, Dialogs& dialogs);

}  // namespace qublet
