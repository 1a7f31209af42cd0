#include "platform/qt/qt_shell.h"

#include <QDesktopServices>
#include <QUrl>

namespace qublet {

void QtShell::Open(const std::string& path) {
  ResumeNext([&] { QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(files_.ToNative(path)))); });
}

}  // namespace qublet
