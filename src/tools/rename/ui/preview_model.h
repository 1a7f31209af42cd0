#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "tools/rename/preview.h"

namespace qublet {

// The preview as a table. What fails can be shown alone; a row keeps its number.
class PreviewModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kNumber, kOldName, kNewName, kFate, kColumns };
  static constexpr int kOtherNameRole = Qt::UserRole;  // the name that a name is to be compared with

  using QAbstractTableModel::QAbstractTableModel;

  void Show(std::vector<PreviewRow> rows);
  void ShowOnlyProblems(bool only);
  const std::vector<PreviewRow>& Rows() const { return rows_; }
  // Of all rows: "12 files: 8 renamed, 3 unchanged, 1 with a problem".
  QString Counts() const;
  // The table as it is shown, a row a line, parted by tabs.
  QString AsText() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void Filter();
  QString TextOf(const PreviewRow& row, std::size_t number, int column) const;

  std::vector<PreviewRow> rows_;
  std::vector<std::size_t> shown_;  // places in rows_
  bool only_problems_ = false;
};

}  // namespace qublet
