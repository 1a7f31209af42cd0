#pragma once

#include <QKeyEvent>
#include <QListWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qublet {

// The finished disc as one icon that other programs take as a list of files.
class BurnIcon : public QListWidget {
  Q_OBJECT

 public:
  explicit BurnIcon(QWidget* parent = nullptr);

  // `native_paths` are given to whoever takes it, for copying.
  void ShowDisc(const QString& caption, const QPixmap& picture, const std::vector<std::string>& native_paths);
  void Clear();
  QSize minimumSizeHint() const override;

 protected:
  void startDrag(Qt::DropActions actions) override;
  // Ctrl+C gives the same list to the clipboard.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::unique_ptr<QMimeData> Files() const;

  QPixmap picture_;
  QList<QUrl> addresses_;
};

}  // namespace qublet
