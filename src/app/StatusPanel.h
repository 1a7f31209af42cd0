#pragma once

#include <QFrame>
#include <QIcon>
#include <QLabel>

namespace qublet {

// A panel of the status bar: a text, and a picture ahead of it where there is something to warn of. A text that is
// too long is elided in the middle and shown whole as a tip.
class StatusPanel : public QFrame {
  Q_OBJECT

 public:
  // `name` is what a screen reader calls the panel; the text's object name is "Panel" and the number.
  StatusPanel(int number, const QString& name, QWidget* parent);

  // Makes the panel wide enough for this text. From then on it never gets narrower, and wider only for what wouldn't
  // fit it.
  void KeepRoomFor(const QString& text);
  // The text never changes the panel's width: it gets what the others leave.
  void TakeTheRest();

  void ShowText(const QString& text);
  // What the entry under the pointer or the keyboard does: stands in the place of the text until it is "" again or
  // there is other news.
  void ShowTip(const QString& tip);
  void ShowPicture(const QIcon& picture, const QString& meaning);
  void ClearPicture();

 private:
  void Widen();

  QLabel* picture_;
  QLabel* text_;
  QString own_text_;  // without the tip
  bool keeps_room_ = false;
};

}  // namespace qublet
