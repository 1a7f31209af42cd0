#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <string>

#include "playlist/statistics.h"
#include "ui_PlaylistStats.h"

namespace qublet {

// A summary of the whole list, nothing to edit. The window comes first and the work after: a walk over all files can
// take its time.
class PlaylistStats : public QDialog, private Ui::PlaylistStats {
  Q_OBJECT

 public:
  // `Gather` does the work, once.
  PlaylistStats(std::function<Statistics()> Gather, std::string thousands_separator, QWidget* parent);

 private:
  void ShowPlaceHolders();
  void Timer1_Timer();
  void ShowFigure(const StatisticsLine& line, const std::string& text);
  void MakeRoom();

  std::function<Statistics()> gather_;
  std::string thousands_separator_;
  QTimer Timer1;
};

}  // namespace qublet
