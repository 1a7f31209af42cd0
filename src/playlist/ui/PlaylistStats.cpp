#include "playlist/ui/PlaylistStats.h"

#include <QScrollArea>
#include <QStyle>
#include <algorithm>

#include "desk/placement.h"
#include "platform/qt/shown_text.h"

namespace qublet {

PlaylistStats::PlaylistStats(std::function<Statistics()> Gather, std::string thousands_separator, QWidget* parent)
    : QDialog(parent), gather_(std::move(Gather)), thousands_separator_(std::move(thousands_separator)) {
  setupUi(this);
  for (QScrollArea* page : {GeneralPage, ItemsPage}) {
    page->viewport()->setAutoFillBackground(false);
    page->widget()->setAutoFillBackground(false);
  }
  ShowPlaceHolders();
  setCursor(Qt::WaitCursor);
  Timer1.setInterval(100);
  connect(&Timer1, &QTimer::timeout, this, &PlaylistStats::Timer1_Timer);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  Timer1.start();
}

void PlaylistStats::ShowPlaceHolders() {
  for (const StatisticsLine& line : StatisticsLines({}, thousands_separator_)) {
    ShowFigure(line, kUnknownStatistic);
  }
  lblplaylistfilename->Show("Refreshing...");
  Morethanwarn->clear();
}

void PlaylistStats::Timer1_Timer() {
  Timer1.stop();
  const Statistics statistics = gather_();
  for (const StatisticsLine& line : StatisticsLines(statistics, thousands_separator_)) ShowFigure(line, line.text);
  Morethanwarn->setText(QString::fromStdString(StatisticsNote(statistics)));
  MakeRoom();
  unsetCursor();
}

// A screen reader says the caption with it.
void PlaylistStats::ShowFigure(const StatisticsLine& line, const std::string& text) {
  auto* label = findChild<ShownLabel*>(QString::fromUtf8(line.control));
  label->Show(text);
  label->setAccessibleName(QString::fromUtf8(line.caption) + u' ' + ShownText(text));
}

// A long path takes several lines. What a small screen has no room for is scrolled to.
void PlaylistStats::MakeRoom() {
  layout()->activate();
  const QSize page = GeneralPage->viewport()->size();
  const int bar =
      style()->pixelMetric(QStyle::PM_ScrollBarExtent) + style()->pixelMetric(QStyle::PM_ScrollView_ScrollBarSpacing);
  const int width = std::max({page.width(), GeneralContents->minimumSizeHint().width() + bar,
                              ItemsContents->minimumSizeHint().width() + bar});
  const int height = std::max({page.height(), GeneralContents->layout()->totalHeightForWidth(width),
                               ItemsContents->layout()->totalHeightForWidth(width)});
  GrowOnScreen(*this, QSize(width, height) - page);
}

}  // namespace qublet
