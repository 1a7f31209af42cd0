#include "platform/qt/places.h"

#include <QDir>
#include <QStandardPaths>

namespace qublet {
namespace {

void AddKnown(QList<Place>& places, QStandardPaths::StandardLocation location) {
  const QString path = QStandardPaths::writableLocation(location);
  // A user without such a folder has the home folder for it.
  if (!QDir(path).exists() || QDir(path) == QDir::home()) return;
  const QStyle::StandardPixmap picture =
      location == QStandardPaths::DesktopLocation ? QStyle::SP_DesktopIcon : QStyle::SP_DirIcon;
  places.append({QStandardPaths::displayName(location), path, picture});
}

void AddDrives(QList<Place>& places, const FileSystem& files) {
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    ResumeNext([&] {
      const QString native = QString::fromStdString(files.ToNative({letter, ':', '\\'}));
      places.append({QStringLiteral("%1:").arg(QLatin1Char(letter)), native, QStyle::SP_DriveHDIcon});
    });
  }
}

}  // namespace

QList<Place> UsualPlaces(const FileSystem& files) {
  QList<Place> places{
      {QStandardPaths::displayName(QStandardPaths::HomeLocation), QDir::homePath(), QStyle::SP_DirHomeIcon}};
  for (const auto location : {QStandardPaths::MusicLocation, QStandardPaths::DesktopLocation,
                              QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation})
    AddKnown(places, location);
  AddDrives(places, files);
  return places;
}

QString MusicFolder() {
  const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
  return QDir(music).exists() ? music : QDir::homePath();
}

}  // namespace qublet
