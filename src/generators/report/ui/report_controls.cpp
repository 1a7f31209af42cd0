#include "generators/report/ui/ReportForm.h"

#include <QSignalBlocker>

#include "playlist/paths/text.h"

// How the settings get onto the controls of the wizard and back.

namespace qublet {
namespace {

constexpr std::string_view kFileBreak = "\r\n";

// Also what the list doesn't offer is shown, and kept.
void SelectText(QComboBox& list, const std::string& text) {
  const QString wanted = QString::fromStdString(text);
  if (list.findText(wanted) < 0) list.addItem(wanted);
  list.setCurrentIndex(list.findText(wanted));
}

std::string Text(const QComboBox& list) {
  return list.currentText().toStdString();
}

std::string WithFileBreaks(const std::string& text) {
  return ReplaceAll(text, "\n", kFileBreak);
}

std::string WithOwnBreaks(const std::string& text) {
  return ReplaceAll(ReplaceAll(text, kFileBreak, "\n"), "\r", "\n");
}

QTreeWidgetItem* ColumnItem(int number, bool checked) {
  const ReportColumn* const column = FindReportColumn(number);
  auto* item = new QTreeWidgetItem({column == nullptr ? QString() : QString::fromUtf8(column->key)});
  item->setData(0, Qt::UserRole, number);
  item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren);
  item->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
  return item;
}

// Of several delimiters only one decides.
enum class Cells { kSpaceAligned, kComma, kTab, kCustom, kNone };

Cells CellsOf(const ReportSettings& settings) {
  if (settings.SpaceAligned) return Cells::kSpaceAligned;
  if (settings.CustomDelimited) return Cells::kCustom;
  if (settings.TabDelimited) return Cells::kTab;
  return settings.CommaDelimited ? Cells::kComma : Cells::kNone;
}

}  // namespace

void ReportForm::SettingsToForm(const ReportSettings& settings) {
  loaded_ = settings;
  const QSignalBlocker quiet(txtDesc);
  RepType->setCurrentIndex(settings.RepType == kTextReport ? 1 : 0);
  txtTitle->setText(QString::fromStdString(settings.Title));
  txtDesc->setPlainText(QString::fromStdString(WithOwnBreaks(settings.Description)));
  Summary->setChecked(settings.Summary);
  ColumnHeaders->setChecked(settings.ColumnHeaders);
  SaveRel->setChecked(settings.SaveRel);
  SelectText(*ValWidth, settings.TableWidth);
  SelectText(*ValSpacing, settings.TableSpacing);
  SelectText(*ValPadding, settings.TablePadding);
  SelectText(*ValBorder, settings.TableBorder);
  ColumnsToForm(settings);
  DelimitersToForm(settings);
  FontToForm(QString::fromStdString(settings.FontName), settings.FontSize);
  ColorTable->setChecked(settings.ColorTable);
}

void ReportForm::ColumnsToForm(const ReportSettings& settings) {
  ColumnList->clear();
  for (std::size_t place = 0; place < kReportColumns; ++place)
    ColumnList->addTopLevelItem(ColumnItem(settings.ColumnOrder[place], settings.ColumnChecked[place]));
  ColumnList->setCurrentItem(ColumnList->topLevelItem(0));
}

void ReportForm::DelimitersToForm(const ReportSettings& settings) {
  txtDelimiter->setText(QString::fromStdString(settings.Delimiter));
  const Cells cells = CellsOf(settings);
  SpaceAligned->setChecked(cells == Cells::kSpaceAligned || cells == Cells::kNone);
  CommaDelimited->setChecked(cells == Cells::kComma);
  TabDelimited->setChecked(cells == Cells::kTab);
  CustomDelimited->setChecked(cells == Cells::kCustom);
}

// A font that isn't installed keeps its name.
void ReportForm::FontToForm(const QString& name, std::int16_t size) {
  FontList->setPlaceholderText(name);  // an empty one would choose the first row
  FontList->setCurrentIndex(FontList->findText(name));
  FontSizer->setCurrentIndex(size < FontSizer->count() ? size : -1);
  QFont font = FontTest->font();
  font.setFamilies({name});
  if (FontSizer->currentIndex() >= 0) font.setPointSize(FontSizer->currentText().toInt());
  FontTest->setFont(font);
}

ReportSettings ReportForm::FormToSettings() const {
  ReportSettings settings = loaded_;
  settings.RepType = static_cast<std::int16_t>(RepType->currentIndex());
  if (txtTitle->isModified()) settings.Title = txtTitle->text().toStdString();
  if (txtDesc->document()->isModified()) settings.Description = WithFileBreaks(txtDesc->toPlainText().toStdString());
  settings.Summary = Summary->isChecked();
  settings.ColumnHeaders = ColumnHeaders->isChecked();
  settings.SaveRel = SaveRel->isChecked();
  settings.TableWidth = Text(*ValWidth);
  settings.TableSpacing = Text(*ValSpacing);
  settings.TablePadding = Text(*ValPadding);
  settings.TableBorder = Text(*ValBorder);
  for (std::size_t place = 0; place < kReportColumns; ++place) {
    const QTreeWidgetItem& item = *ColumnList->topLevelItem(static_cast<int>(place));
    settings.ColumnOrder[place] = static_cast<std::int16_t>(item.data(0, Qt::UserRole).toInt());
    settings.ColumnChecked[place] = item.checkState(0) == Qt::Checked;
  }
  settings.Delimiter = txtDelimiter->text().toStdString();
  DelimitersToSettings(settings);
  settings.FontName = FirstCharacters(FontTest->font().families().value(0).toStdString(), kFontNameWidth);
  if (FontSizer->currentIndex() >= 0) settings.FontSize = static_cast<std::int16_t>(FontSizer->currentIndex());
  settings.ColorTable = ColorTable->isChecked();
  return settings;
}

// What decides is the same as before as long as nobody chooses something else.
void ReportForm::DelimitersToSettings(ReportSettings& settings) const {
  const Cells before = CellsOf(loaded_) == Cells::kNone ? Cells::kSpaceAligned : CellsOf(loaded_);
  const Cells now = CustomDelimited->isChecked()  ? Cells::kCustom
                    : TabDelimited->isChecked()   ? Cells::kTab
                    : CommaDelimited->isChecked() ? Cells::kComma
                                                  : Cells::kSpaceAligned;
  if (now == before) return;
  settings.SpaceAligned = now == Cells::kSpaceAligned;
  settings.CommaDelimited = now == Cells::kComma;
  settings.TabDelimited = now == Cells::kTab;
  settings.CustomDelimited = now == Cells::kCustom;
}

}  // namespace qublet
