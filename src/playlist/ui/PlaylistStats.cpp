#include "playlist/ui/PlaylistStats.h"

namespace qublet {

PlaylistStats::PlaylistStats(std::function<Statistics()> Gather, std::string thousands_separator, QWidget* parent)
    : QDialog(parent), gather_(std::move(Gather)), thousands_separator_(std::move(thousands_separator)) {
  setupUi(this);
  ShowPlaceHolders();
  setCursor(Qt::WaitCursor);
  Timer1.setInterval(100);
  connect(&Timer1, &QTimer::timeout, this, &PlaylistStats::Timer1_Timer);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  Timer1.start();
}

void PlaylistStats::ShowPlaceHolders() {
  for (const StatisticsLine& line : StatisticsLines({}, thousands_separator_)) {
    auto* label = findChild<QLabel*>(QString::fromUtf8(line.control));
    label->setTextFormat(Qt::PlainText);
    label->setText(QString::fromUtf8(kUnknownStatistic));
    label->setAccessibleName(QString::fromUtf8(line.caption));
    // A long path is there to be copied.
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
  lblplaylistfilename->setText(QStringLiteral("Refreshing..."));
  Morethanwarn->clear();
}

void PlaylistStats::Timer1_Timer() {
  Timer1.stop();
  const Statistics statistics = gather_();
  for (const StatisticsLine& line : StatisticsLines(statistics, thousands_separator_))
    findChild<QLabel*>(QString::fromUtf8(line.control))->setText(QString::fromStdString(line.text));
  Morethanwarn->setText(QString::fromStdString(StatisticsNote(statistics)));
  unsetCursor();
}

}  // namespace qublet
