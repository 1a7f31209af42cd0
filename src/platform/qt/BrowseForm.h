#pragma once

#include <QDialog>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

#include "platform/qt/places.h"

namespace qublet {

// A tree of the folders of this machine, and of the files in them that fit `file_patterns` (none: folders only), with
// places to start from beside it. A path can be typed as well, in quotes too: it is completed, and the tree follows.
// All paths are native.
class BrowseForm : public QDialog {
  Q_OBJECT

 public:
  BrowseForm(const QString& title, const QStringList& file_patterns, const QList<Place>& places, QWidget* parent);

  // Opens the tree at a folder or file and makes it the choice.
  void Preselect(const QString& path);
  // What the path says, plain: "" when that is no absolute path.
  QString Chosen() const;

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildTree(const QStringList& file_patterns);
  void BuildPlaces(const QList<Place>& places);
  void BuildPath();
  void Connect();
  void Follow();
  void ShowWanted();

  QFileIconProvider icons_;
  QFileSystemModel* model_;
  QListWidget* places_;
  QTreeView* tree_;
  QLineEdit* path_;
  QString wanted_;  // what is to be in view once the folders around it are read; "" when the user has moved on
  bool following_ = false;  // the tree moves because of what is typed
};

}  // namespace qublet
