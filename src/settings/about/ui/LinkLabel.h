#pragma once

#include <QLabel>

namespace qublet {

// A label that is one link, which has the keyboard as soon as the label has it: of the toolkit's own labels the first
// Tab reaches the label and only the second its link. It can be read on every palette; some dark ones know no colour
// of links.
class LinkLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  void ShowLink(const QString& address);

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  QString address_;
};

}  // namespace qublet
