#pragma once

#include <QList>
#include <QString>
#include <QStyle>

#include "platform/file_system.h"

namespace qublet {

// A folder that people start from. The path is native.
struct Place {
  QString name;
  QString path;
  QStyle::StandardPixmap picture;
};

// This user's home and the known folders that are there, and the drives of paths in drive form.
QList<Place> UsualPlaces(const FileSystem& files);

// Where somebody who has chosen nothing yet looks for music: the user's music folder, the home folder where there is
// none.
QString MusicFolder();

}  // namespace qublet
