#include "shutdown_pictures.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "support/modal_work.h"

namespace qublet {
namespace {

void TakeWatch(MainWindow& window, QWidget& form, const TakePicture& take) {
  form.findChild<QTimer*>(QStringLiteral("tmrSHUTDOWN"))->setInterval(100);
  const auto& line = *form.findChild<QLabel*>(QStringLiteral("Label2"));
  const auto says = [&](const char* text) {
    return QTest::qWaitFor([&] { return line.text() == QString::fromUtf8(text); });
  };
  if (says("Playing...")) take("shutdown-playing", &form);
  window.players.position = -1;
  if (says("Shutting down in 15 Seconds...")) take("shutdown-counting", &form);
  form.findChild<QPushButton*>(QStringLiteral("cmdHALT"))->click();
  take("shutdown-halted", &form);
}

}  // namespace

void TakeShutdownPictures(MainWindow& window, const TakePicture& take) {
  window.dialogs.open_names = {"c:\\Evening.m3u8"};
  window.Run("MFileOpen");
  window.players.running = ":1.7";
  window.players.position = 5000;
  window.dialogs.answers = {MessageAnswer::kOk};
  WorkInModal([&] { window.Run("MToolsWinampShutDown"); }, [&](QWidget& form) { TakeWatch(window, form, take); });
}

}  // namespace qublet
