#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <functional>
#include <optional>
#include <string>

namespace qublet {

// A box of the form. A text that the user doesn't touch comes back byte for byte, though the toolkit's boxes turn
// line ends and odd blanks into others. What a box has no room for is gone.
class FormBox {
 public:
  explicit FormBox(QLineEdit& box);
  explicit FormBox(QPlainTextEdit& box);
  // Its free text.
  explicit FormBox(QComboBox& box);

  void Show(const std::string& text);
  std::string Text() const;

 private:
  std::optional<qsizetype> most_;  // letters
  std::function<QString()> read_;
  std::function<void(const QString&)> write_;
  std::string given_;
  QString shown_;  // what the box holds of `given_`
};

}  // namespace qublet
