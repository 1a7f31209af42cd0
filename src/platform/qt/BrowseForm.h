#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QTreeView>

namespace qublet {

// A tree of the folders of this machine, and of the files in them that fit `file_patterns` (none: folders only). A
// path can be typed as well. All paths are native.
class BrowseForm : public QDialog {
  Q_OBJECT

 public:
  BrowseForm(const QString& title, const QStringList& file_patterns, QWidget* parent);

  // Opens the tree at a folder or file and makes it the choice.
  void Preselect(const QString& path);
  QString Chosen() const { return path_->text(); }

 private:
  QFileSystemModel* model_;
  QTreeView* tree_;
  QLineEdit* path_;
};

}  // namespace qublet
