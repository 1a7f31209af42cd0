#include "app/session_end.h"

#include <QEvent>
#include <QGuiApplication>
#include <optional>

#include "platform/failure.h"
#include "platform/shutdown_reason.h"

namespace qublet {

SessionEnd::SessionEnd(Main& main) : main_(main) {
  // The answer has to stand when the signal comes back.
  connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::CommitData, Qt::DirectConnection);
  // A posted call reaches the window in the middle of a command too.
  ResumeNext([&] {
    signals_ = std::make_unique<EndRequests>(
        [&main] { QMetaObject::invokeMethod(&main, &Main::EndUnasked, Qt::QueuedConnection); });
  });
}

// The user may go on for a while after this, or the session may go on after all: the process ends only when it is
// told to.
void SessionEnd::CommitData(QSessionManager& manager) {
  qApp->removeEventFilter(this);
  std::optional<ShutdownReason> reason;
  const auto may_ask = [&] {
    if (!manager.allowsInteraction()) return false;
    reason.emplace(main_.winId(), "The playlist has changes that aren't saved.");
    return true;
  };
  if (main_.PrepareEnd(may_ask)) {
    qApp->installEventFilter(this);
  } else {
    // Not after a release, which would tell that the user agreed. The toolkit releases by itself.
    manager.cancel();
  }
}

// The end that was agreed to. The toolkit would close the windows, which ask again.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
  if (watched != qApp || event->type() != QEvent::Quit) return false;
  main_.EndUnasked();
  return true;
}

}  // namespace qublet
