#include "generators/report/ui/ReportForm.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QKeyEvent>
#include <QShortcut>
#include <QTextCursor>

#include "desk/activation.h"
#include "desk/busy_window.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kLettersAcross = 64;
constexpr int kMostTablePixels = 2000;
constexpr int kTableStep = 16;
constexpr int kMostTableNumber = 24;

}  // namespace

ReportForm::ReportForm(Engine& engine, QWidget* parent) : BarlessDialog(parent), wizard_(engine) {
  setupUi(this);
  FillLists();
  ConnectSteps();
  ConnectColumns();
  ConnectFonts();
  wizard_.Load();
  ReportSettings defaults;
  LoadDefaults(defaults);
  SettingsToForm(defaults);
  new Activation(*this, [this](Activation::Cause) { Activate(); });
  Render();
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
}

void ReportForm::FillLists() {
  ColumnList->setColumnWidth(0, fontMetrics().averageCharWidth() * 30);
  FontList->addItems(QFontDatabase::families());
  for (const char* size : {"8", "10", "12", "14", "18", "24", "36"}) FontSizer->addItem(QString::fromUtf8(size));
  ValWidth->addItem(QStringLiteral("Auto"));
  for (int pixels = kTableStep; pixels <= kMostTablePixels; pixels += kTableStep)
    ValWidth->addItem(QString::number(pixels));
  for (QComboBox* list : {ValBorder, ValSpacing, ValPadding}) {
    for (int number = 0; number <= kMostTableNumber; ++number) list->addItem(QString::number(number));
  }
}

void ReportForm::ConnectSteps() {
  connect(CmdNext, &QPushButton::clicked, this, &ReportForm::CmdNext_Click);
  connect(CmdBack, &QPushButton::clicked, this, &ReportForm::CmdBack_Click);
  connect(CmdClose, &QPushButton::clicked, this, &ReportForm::reject);
  connect(LoadCurrent, &QPushButton::clicked, this, &ReportForm::LoadCurrent_Click);
  connect(SaveCurrent, &QPushButton::clicked, this, [this] { wizard_.SaveCurrent_Click(FormToSettings()); });
  connect(LoadDefault, &QPushButton::clicked, this, [this] {
    ReportSettings defaults;
    LoadDefaults(defaults);
    SettingsToForm(defaults);
  });
  txtTitle->installEventFilter(this);
  connect(txtDesc, &QPlainTextEdit::textChanged, this, &ReportForm::LimitDescription);
  connect(txtDelimiter, &QLineEdit::textEdited, CustomDelimited, [this] { CustomDelimited->setChecked(true); });
}

void ReportForm::ConnectColumns() {
  connect(cmdUp, &QPushButton::clicked, this, [this] { MoveSelected(-1); });
  connect(cmdDown, &QPushButton::clicked, this, [this] { MoveSelected(1); });
  connect(cmdAll, &QPushButton::clicked, this, [this] { TickAll(true); });
  connect(cmdNone, &QPushButton::clicked, this, [this] { TickAll(false); });
  const auto key = [this](Qt::Key arrow, QPushButton* button) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | arrow), ColumnList);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  };
  key(Qt::Key_Up, cmdUp);
  key(Qt::Key_Down, cmdDown);
}

void ReportForm::ConnectFonts() {
  connect(FontList, &QComboBox::activated, this, &ReportForm::FontList_Click);
  connect(FontSizer, &QComboBox::activated, this, &ReportForm::FontSizer_Click);
}

// What a double click does, F4 does.
bool ReportForm::eventFilter(QObject* watched, QEvent* event) {
  const bool f4 = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F4;
  if (watched != txtTitle || (!f4 && event->type() != QEvent::MouseButtonDblClick))
    return BarlessDialog::eventFilter(watched, event);
  txtTitle->selectAll();
  txtTitle->insert(QString::fromStdString(wizard_.FolderTitle()));
  return true;
}

// A line break is two characters in the file.
void ReportForm::LimitDescription() {
  const QString text = txtDesc->toPlainText();
  auto room = static_cast<qsizetype>(kDescriptionWidth);
  qsizetype fits = 0;
  while (fits < text.size() && (room -= text[fits] == u'\n' ? 2 : 1) >= 0) ++fits;
  if (fits == text.size()) return;
  QTextCursor rest(txtDesc->document());
  rest.setPosition(static_cast<int>(fits));
  rest.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
  rest.removeSelectedText();
}

void ReportForm::Activate() {
  wizard_.Activate();
  Render();
  RepType->setFocus();
}

void ReportForm::CmdNext_Click() {
  BusyWindow busy(*this);
  ReportWizard::Watch watch;
  watch.view = [this] { Render(); };
  watch.progress = [&](int value, int maximum) {
    ProgressBar1->setRange(0, std::max(maximum, 1));
    ProgressBar1->setValue(value);
    if (value == 0 || busy.IsDue()) busy.Repaint();
  };
  wizard_.CmdNext_Click(FormToSettings(), watch);
  Render();
  if (wizard_.view.closes_next) CmdClose->setFocus();
}

void ReportForm::CmdBack_Click() {
  wizard_.CmdBack_Click(FormToSettings());
  Render();
}

void ReportForm::LoadCurrent_Click() {
  if (const auto settings = wizard_.LoadCurrent_Click()) SettingsToForm(*settings);
}

void ReportForm::MoveSelected(int by) {
  const int row = ColumnList->indexOfTopLevelItem(ColumnList->currentItem());
  const int target = row + by;
  if (row >= 0 && target >= 0 && target < ColumnList->topLevelItemCount()) MoveColumn(row, target);
}

void ReportForm::MoveColumn(int from, int to) {
  QTreeWidgetItem* const moved = ColumnList->takeTopLevelItem(from);
  ColumnList->insertTopLevelItem(to, moved);
  ColumnList->setCurrentItem(moved);
}

void ReportForm::TickAll(bool ticked) {
  for (int row = 0; row < ColumnList->topLevelItemCount(); ++row)
    ColumnList->topLevelItem(row)->setCheckState(0, ticked ? Qt::Checked : Qt::Unchecked);
}

void ReportForm::FontList_Click() {
  QFont font = FontTest->font();
  font.setFamilies({FontList->currentText()});
  font.setBold(false);
  font.setItalic(false);
  FontTest->setFont(font);
  FontToForm(QFontInfo(font).family(), static_cast<std::int16_t>(FontSizer->currentIndex()));
}

void ReportForm::FontSizer_Click() {
  FontToForm(FontTest->font().families().value(0), static_cast<std::int16_t>(FontSizer->currentIndex()));
}

void ReportForm::Render() {
  const ReportView& view = wizard_.view;
  // A button that has the keyboard hands it on before it can't be used.
  if (!view.back && CmdBack->hasFocus()) CmdNext->setFocus();
  FrameStep->setCurrentIndex(view.frame);
  CmdBack->setEnabled(view.back);
  CmdNext->setEnabled(view.next);
  lblReport->Report(ShownText(view.lblReport));
}

}  // namespace qublet
