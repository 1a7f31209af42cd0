#pragma once

#include <QFrame>
#include <QIcon>
#include <QLabel>

namespace qublet {

// A panel of the status bar: a text, and a picture ahead of it where there is something to warn of.
class StatusPanel : public QFrame {
  Q_OBJECT

 public:
  // `name` is what a screen reader calls the panel; the text's object name is "Panel" and the number.
  StatusPanel(int number, const QString& name, QWidget* parent);

  QLabel& Text() { return *text_; }
  void ShowText(const QString& text) { text_->setText(text); }
  void ShowPicture(const QIcon& picture, const QString& meaning);
  void ClearPicture();

 private:
  QLabel* picture_;
  QLabel* text_;
};

}  // namespace qublet
