#pragma once

#include <QDialog>
#include <QMenu>
#include <functional>

#include "tools/search/searcher.h"
#include "ui_frmSearch.h"

namespace qublet {

// The window that finds rows. It shows what Searcher says and brings back what the user does; its caption is its
// report line.
class frmSearch : public QDialog, private Ui::frmSearch {
  Q_OBJECT

 public:
  frmSearch(Engine& engine, QWidget* parent);

  // Whether it is shown again with its options and history, once it was closed.
  bool KeepsAlive() const { return searcher_.view.Mkeepalive; }

 private:
  void MakeMenu();
  void AddTick(QMenu& menu, const char* name, const char* caption, bool ticked, std::function<void(bool)> clicked);
  void Activate();
  void cmdOptions_Click();
  void Run(void (Searcher::*command)());
  void Render();

  Searcher searcher_;
  QMenu Moptions{this};
};

}  // namespace qublet
