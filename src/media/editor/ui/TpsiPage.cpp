#include "media/editor/ui/TpsiPage.h"

#include <QKeyEvent>
#include <QSignalBlocker>

#include "media/editor/ui/list_rows.h"
#include "media/tpsi.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kTick = 1000;  // milliseconds

}  // namespace

TpsiPage::TpsiPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  for (QComboBox* box : {TPSIhour, TPSImin, TPSIsec}) {
    for (int number = 0; number < kTpsiEntries; ++number)
      box->addItem(QStringLiteral("%1").arg(number, 2, 10, QChar(u'0')));
  }
  TPSIlist->installEventFilter(this);
}

void TpsiPage::Bind(TagEditor& editor, const CommandRunner& run) {
  TimePositions& positions = editor.positions;
  connect(TPSIlist, &QTreeWidget::currentItemChanged, this,
          [this, run, &positions] { run([&] { positions.Select(CurrentRow(*TPSIlist)); }); });
  connect(TPSIlist, &QTreeWidget::itemDoubleClicked, this,
          [run, &positions] { run([&] { positions.TPSIgoto_Click(); }); });
  const auto bind = [this, &run, &positions](QPushButton* button, void (TimePositions::*handler)()) {
    connect(button, &QPushButton::clicked, this,
            [run, &positions, handler] { run([&] { (positions.*handler)(); }); });
  };
  bind(TPSIadd, &TimePositions::TPSIadd_Click);
  bind(TPSIremove, &TimePositions::TPSIremove_Click);
  bind(TPSIclrall, &TimePositions::TPSIclrall_Click);
  bind(TPSIgoto, &TimePositions::TPSIgoto_Click);
  BindTime(positions);
}

// The boxes are told of at once: the player's answer may come at any time.
void TpsiPage::BindTime(TimePositions& positions) {
  connect(TPSIhour, &QComboBox::currentIndexChanged, this, [&positions](int hour) { positions.TPSIhour = hour; });
  connect(TPSImin, &QComboBox::currentIndexChanged, this, [&positions](int minute) { positions.TPSImin = minute; });
  connect(TPSIsec, &QComboBox::currentIndexChanged, this, [&positions](int second) { positions.TPSIsec = second; });
  connect(TPSIautoupdate, &QCheckBox::toggled, this, [&positions](bool on) { positions.TPSIautoupdate = on; });
  connect(&TPSItimer, &QTimer::timeout, this,
          [this, &positions] { positions.TPSItimer_Timer([this, &positions] { ShowTime(positions); }); });
  TPSItimer.start(kTick);
}

void TpsiPage::Show(const TimePositions& positions, bool played) {
  const QSignalBlocker quiet(TPSIlist);
  ShowRows(positions.Records());
  SetCurrentRow(*TPSIlist, positions.Selected());
  TPSIlabel->setText(positions.Selected() > 0 ? QString::number(positions.Selected()) : QString());
  ShowTime(positions);
  TPSIautoupdate->setEnabled(played);
  TPSIgoto->setEnabled(played);
}

void TpsiPage::ShowRows(const Collection& records) {
  if (records == shown_) return;
  shown_ = records;
  TPSIlist->clear();
  for (const std::string& record : shown_)
    new QTreeWidgetItem(TPSIlist, {ShownText(record), ShownText(TpsiTimeText(record))});
  TPSIlist->resizeColumnToContents(0);
}

void TpsiPage::ShowTime(const TimePositions& positions) {
  TPSIhour->setCurrentIndex(positions.TPSIhour);
  TPSImin->setCurrentIndex(positions.TPSImin);
  TPSIsec->setCurrentIndex(positions.TPSIsec);
  TPSIautoupdate->setChecked(positions.TPSIautoupdate);
}

// Enter in the list goes to the position.
bool TpsiPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      emit TPSIlist->itemDoubleClicked(TPSIlist->currentItem(), 0);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace qublet
