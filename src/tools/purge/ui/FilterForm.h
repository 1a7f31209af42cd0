#pragma once

#include <QDialog>
#include <functional>

#include "desk/window_feedback.h"
#include "tools/purge/purger.h"
#include "ui_FilterForm.h"

namespace qublet {

// The window that purges duplicates and missing items. It shows what Purger says and brings back what the user does.
// It only hides when it is closed.
class FilterForm : public QDialog, private Ui::FilterForm {
  Q_OBJECT

 public:
  FilterForm(Engine& engine, WindowFeedback& feedback, QWidget* parent);

 public slots:
  void reject() override;

 private:
  void Activate();
  void Process();
  void RunLong(const std::function<void()>& work);
  void Render();

  Purger purger_;
  WindowFeedback& feedback_;
};

}  // namespace qublet
