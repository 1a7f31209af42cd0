#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <future>
#include <optional>
#include <string>

#include "desk/desk.h"
#include "settings/update/update_check.h"

namespace qublet {

// A check for a newer version that is under way while the windows go on. It tells what it finds and is gone then; one
// that is deleted before says nothing.
class UpdateCheck : public QObject {
  Q_OBJECT

 public:
  enum class Manner {
    kQuiet,  // only a newer version is told
    kAsked,  // everything is told, and the wait cursor shown meanwhile
  };

  // Begins it, as a child of the main window. What a server hasn't ended after `patience` has failed.
  UpdateCheck(const Desk& desk, Manner manner, std::chrono::milliseconds patience = kUpdatePatience);

  bool UnderWay() const { return poll_.isActive(); }
  bool Asked() const { return manner_ == Manner::kAsked; }

 private:
  // The whole program's, since commands come and go meanwhile.
  struct ShownWaitCursor {
    ShownWaitCursor();
    ~ShownWaitCursor();
    ShownWaitCursor(const ShownWaitCursor&) = delete;
    ShownWaitCursor& operator=(const ShownWaitCursor&) = delete;
  };

  void Look();

  Dialogs& dialogs_;
  const Manner manner_;
  const std::chrono::steady_clock::time_point end_;
  std::future<std::string> response_;
  QTimer poll_;  // a timer, since timers wait while a command works
  std::optional<ShownWaitCursor> cursor_;
};

}  // namespace qublet
