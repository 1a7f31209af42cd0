#pragma once

#include <QLabel>
#include <string_view>

namespace qublet {

// A label for text from files that wraps wherever it has to and can be copied: what is copied is the text, without
// the places to break.
class ShownLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ShownLabel(QWidget* parent = nullptr);

  // The middle of a very long text gives way to "..."; the tip has it whole.
  void Show(std::string_view text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void Copy() const;
};

}  // namespace qublet
