#include "media/editor/ui/form_box.h"

namespace qublet {

FormBox::FormBox(QLineEdit& box)
    : most_(box.maxLength()), read_([&box] { return box.text(); }), write_([&box](const QString& text) {
        box.setText(text);
        box.setCursorPosition(0);
      }) {}

FormBox::FormBox(QPlainTextEdit& box)
    : read_([&box] { return box.toPlainText(); }), write_([&box](const QString& text) { box.setPlainText(text); }) {}

FormBox::FormBox(QComboBox& box)
    : read_([&box] { return box.currentText(); }), write_([&box](const QString& text) {
        box.setCurrentIndex(box.findText(text, Qt::MatchExactly));
        box.setEditText(text);
        box.lineEdit()->setCursorPosition(0);
      }) {}

void FormBox::Show(const std::string& text) {
  if (Text() != text) write_(QString::fromStdString(text));
  shown_ = read_();
  const bool cut = most_ && QString::fromStdString(text).size() > *most_;
  given_ = cut ? shown_.toStdString() : text;
}

std::string FormBox::Text() const {
  const QString now = read_();
  return now == shown_ ? given_ : now.toStdString();
}

}  // namespace qublet
