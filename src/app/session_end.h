#pragma once

#include <QObject>
#include <QSessionManager>
#include <memory>

#include "app/Main.h"
#include "platform/end_requests.h"

namespace qublet {

// The ends that come from outside: a signal, the desktop's log-off.
class SessionEnd : public QObject {
 public:
  explicit SessionEnd(Main& main);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void CommitData(QSessionManager& manager);

  Main& main_;
  std::unique_ptr<EndRequests> signals_;
};

}  // namespace qublet
