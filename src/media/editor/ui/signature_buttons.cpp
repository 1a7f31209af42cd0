#include "media/editor/ui/signature_buttons.h"

#include <QEvent>

namespace qublet {

SignatureButtons::SignatureButtons(QWidget& box, const Buttons& buttons, const std::function<void()>& save,
                                   const std::function<void()>& get)
    : QObject(&box), buttons_(buttons) {
  for (QPushButton* button : {&buttons_.save, &buttons_.get, &buttons_.close}) {
    // The page stays as it is laid out.
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
  }
  SetShown(false);
  box.installEventFilter(this);
  connect(&buttons_.save, &QPushButton::clicked, this, save);
  connect(&buttons_.get, &QPushButton::clicked, this, get);
  for (QPushButton* button : {&buttons_.save, &buttons_.get, &buttons_.close})
    connect(button, &QPushButton::clicked, this, [this] { SetShown(false); });
}

bool SignatureButtons::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) SetShown(true);
  return QObject::eventFilter(watched, event);
}

void SignatureButtons::SetShown(bool shown) {
  for (QPushButton* button : {&buttons_.save, &buttons_.get, &buttons_.close}) button->setVisible(shown);
}

}  // namespace qublet
