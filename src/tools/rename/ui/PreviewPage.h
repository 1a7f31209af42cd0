#pragma once

#include <QWidget>
#include <memory>

#include "tools/rename/preview_worker.h"
#include "tools/rename/ui/page_runner.h"
#include "tools/rename/ui/preview_model.h"
#include "ui_PreviewPage.h"

namespace qublet {

// What the run would do to each file. It is worked out while the page is to be seen, and never renames.
class PreviewPage : public QWidget, private Ui::PreviewPage {
  Q_OBJECT

 public:
  explicit PreviewPage(QWidget* parent = nullptr);

  void Attach(Renamer& renamer, Engine& engine);
  // Works the preview out anew, if the page is to be seen and something has changed since.
  void Refresh();
  // Files or rows have changed.
  void Forget();
  // Nothing is read any more when this comes back.
  void Stop();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  PreviewRequest Request() const;
  void Show(std::vector<PreviewRow> rows);
  void ShowCounts(bool worked_out);

  Renamer* renamer_ = nullptr;
  Engine* engine_ = nullptr;
  PreviewModel model_;
  std::optional<PreviewRequest> shown_;  // what the table is of, or will be
  int number_ = 0;                       // of the request that is waited for
  std::unique_ptr<PreviewWorker> worker_;
};

}  // namespace qublet
