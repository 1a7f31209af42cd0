#pragma once

#include <QPushButton>
#include <functional>

namespace qublet {

// The three buttons for the signature beside a page's comment box. They come up when the box gets the focus and hide
// when one of them is pressed.
class SignatureButtons : public QObject {
  Q_OBJECT

 public:
  struct Buttons {
    QPushButton& save;
    QPushButton& get;
    QPushButton& close;
  };

  SignatureButtons(QWidget& box, const Buttons& buttons, const std::function<void()>& save,
                   const std::function<void()>& get);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SetShown(bool shown);

  Buttons buttons_;
};

}  // namespace qublet
