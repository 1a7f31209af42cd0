#pragma once

#include <QCoreApplication>
#include <filesystem>

#include "support/main_window.h"

namespace qublet {

// Puts the book that was built beside this test into the program folder of a window's program.
inline void PutBookInto(const MainWindow& window) {
  const std::filesystem::path built = QCoreApplication::applicationDirPath().toStdString();
  const std::filesystem::path program = window.drives.C() / "program";
  std::filesystem::copy(built / "QUBLET20.hlp", program);
  std::filesystem::copy(built / "help", program / "help", std::filesystem::copy_options::recursive);
}

// The help's window; null while there is none.
inline QWidget* ShownHelp() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == QStringLiteral("HelpForm") && window->isVisible()) return window;
  return nullptr;
}

// Until the help shows a page with that title; false when it doesn't.
inline bool HelpShows(const char* title) {
  const QString caption = QString::fromUtf8(title) + QStringLiteral(" - Help");
  return QTest::qWaitFor([&] { return ShownHelp() != nullptr && ShownHelp()->windowTitle() == caption; });
}

}  // namespace qublet
