#pragma once

#include <QObject>
#include <string>

namespace qublet {

// Knows when the user last pressed something in this program, and makes ids of it for the starts of other programs: a
// window that comes of a start bears its id, and by the time in it the window manager knows that the user asked for
// it (https://specifications.freedesktop.org/startup-notification-spec).
class LastInput : public QObject {
  Q_OBJECT

 public:
  LastInput();

  // "" where the window system isn't X11.
  std::string StartupId();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  quint64 time_ = 0;  // of the display
  int starts_ = 0;
};

}  // namespace qublet
