#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>
#include <array>

namespace qublet {

// The program's own drawing of that name (pictures/NAME.svg), sharp at every size and scaling; a null icon when there
// is none. Lines take the text colour of the application's palette at the time of painting, so a change between light
// and dark needs no new icon. Disabled, a drawing loses its colour and pales. The rows' pictures, the warning and the
// program's icon look alike on every palette.
QIcon Picture(const QString& name);

// The names that `Picture` knows, in ascending order.
QStringList PictureNames();

// The menus' pictures by their number, from 1: `Picture(ImageList1[number])`.
inline constexpr std::array<const char*, 16> ImageList1{"",        "new",       "open",   "save",    "add", "remove",
                                                        "move-up", "move-down", "play",   "preview", "tag", "tools",
                                                        "rename",  "purge",     "search", "help"};

}  // namespace qublet
