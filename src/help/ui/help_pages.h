#pragma once

#include <QObject>
#include <QPointer>

#include "desk/desk.h"
#include "help/ui/HelpForm.h"

namespace qublet {

// Opens the book's pages, all in one window. A window's page bears the window's name ("help/frmSearch.html"); one
// without a page has that of the window it belongs to. Where there is no book nothing happens.
class HelpPages : public QObject {
  Q_OBJECT

 public:
  // The main window owns this.
  explicit HelpPages(const Desk& desk);

  void ShowContents();
  void ShowPageOf(const QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;  // F1 of every window but the main one

 private:
  QString FindContents() const;
  void Show(const QString& contents, const QString& page);

  const Desk& desk_;
  QPointer<HelpForm> form_;
};

}  // namespace qublet
