#pragma once

#include <QTimer>
#include <QWidget>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/command_runner.h"
#include "ui_TpsiPage.h"

namespace qublet {

// The time positions of a file. They are kept among its comments.
class TpsiPage : public QWidget, private Ui::TpsiPage {
  Q_OBJECT

 public:
  explicit TpsiPage(QWidget* parent = nullptr);

  void Bind(TagEditor& editor, const CommandRunner& run);
  // `played`: what works with the player can be used.
  void Show(const TimePositions& positions, bool played);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BindTime(TimePositions& positions);
  void ShowRows(const Collection& records);
  void ShowTime(const TimePositions& positions);

  Collection shown_;
  QTimer TPSItimer;
};

}  // namespace qublet
