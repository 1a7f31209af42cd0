#pragma once

#include <QMetaObject>
#include <QObject>
#include <QWidget>
#include <QWindow>

namespace qublet {

// Keeps a window that is none of the program's work (the help) usable while a modal one waits for its answer: it
// belongs to whatever window is modal at the moment, and to none otherwise. The window owns this.
class BesideModal : public QObject {
  Q_OBJECT

 public:
  // The window has been created: it has a handle.
  explicit BesideModal(QWidget& window);

  // Above the modal window, if there is one; to be called before the window is brought to the front.
  void Follow();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Belong();

  QWidget& window_;
  QWindow* handle_;
  QMetaObject::Connection end_of_modal_;
};

}  // namespace qublet
