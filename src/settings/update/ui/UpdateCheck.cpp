#include "settings/update/ui/UpdateCheck.h"

#include <QGuiApplication>

#include "settings/update/http_fetch.h"

namespace qublet {
namespace {

constexpr std::chrono::milliseconds kLookEvery{50};

}  // namespace

UpdateCheck::ShownWaitCursor::ShownWaitCursor() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

UpdateCheck::ShownWaitCursor::~ShownWaitCursor() {
  QGuiApplication::restoreOverrideCursor();
}

UpdateCheck::UpdateCheck(const Desk& desk, Manner manner, std::chrono::milliseconds patience)
    : QObject(&desk.main),
      dialogs_(desk.engine.services.dialogs),
      manner_(manner),
      end_(std::chrono::steady_clock::now() + patience),
      response_(BeginFetch(desk.engine.services.sockets, VersionFileAddress())) {
  connect(&poll_, &QTimer::timeout, this, &UpdateCheck::Look);
  poll_.start(kLookEvery);
  if (Asked()) cursor_.emplace();
}

void UpdateCheck::Look() {
  const bool there = response_.wait_for(std::chrono::seconds::zero()) == std::future_status::ready;
  if (!there && std::chrono::steady_clock::now() < end_) return;
  poll_.stop();
  cursor_.reset();
  CheckForUpdate(there ? response_.get() : "", Asked(), dialogs_);
  deleteLater();
}

}  // namespace qublet
