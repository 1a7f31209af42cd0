#include "settings/preferences/ui/SampleList.h"

#include <QApplication>

namespace qublet {
namespace {

constexpr int kShownColumns = kPath + 1;
constexpr int kLinesHigh = 6;  // of the window's own font: what is below stays where it is

Row SampleRow(const char* name, const char* time, const char* size, const char* folder) {
  Row row;
  row.cells[kFileName] = name;
  row.cells[kTime] = time;
  row.cells[kSize] = size;
  row.cells[kPath] = folder;
  return row;
}

}  // namespace

SampleList::SampleList(QWidget* parent) : RowList(parent) {
  rows_.Insert(1, {SampleRow("01-Untitled.mp3", "5.40", "4,785Kb", "c:\\mp3\\electronic"),
                   SampleRow("04-Untitled.mp3", "3.10", "5,668Kb", "c:\\wav\\samples")});
  ShowRows(&model_);
  setAcceptDrops(false);
  for (int column = kShownColumns; column < kColumnCount; ++column) setColumnHidden(column, true);
}

void SampleList::FitColumns() {
  for (int column = 0; column < kShownColumns; ++column) resizeColumnToContents(column);
}

QSize SampleList::sizeHint() const {
  return {RowList::sizeHint().width(), kLinesHigh * QFontMetrics(QApplication::font()).height()};
}

}  // namespace qublet
