#pragma once

#include <QLabel>

namespace qublet {

// A label with one link, which has the keyboard as soon as the label has it: of the toolkit's own labels the first
// Tab reaches the label and only the second its link.
class LinkLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace qublet
