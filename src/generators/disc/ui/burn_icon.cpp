#include "generators/disc/ui/burn_icon.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMimeData>

#include "platform/qt/file_urls.h"

namespace qublet {

namespace {

constexpr int kPicture = 48;  // pixels across, as far as is known before there is one

}  // namespace

BurnIcon::BurnIcon(QWidget* parent) : QListWidget(parent) {
  setViewMode(QListView::IconMode);
  setMovement(QListView::Static);
  setDragEnabled(true);
  setTextElideMode(Qt::ElideMiddle);
}

void BurnIcon::ShowDisc(const QString& caption, const QPixmap& picture,
                        const std::vector<std::string>& native_paths) {
  Clear();
  picture_ = picture;
  for (const std::string& path : native_paths) addresses_ << FileUrl(path);
  setIconSize(picture.deviceIndependentSize().toSize());
  setCurrentItem(new QListWidgetItem(QIcon(picture), caption, this));
}

QSize BurnIcon::minimumSizeHint() const {
  return {2 * kPicture, kPicture + 3 * fontMetrics().lineSpacing()};  // the picture and its caption
}

void BurnIcon::Clear() {
  clear();
  addresses_.clear();
}

std::unique_ptr<QMimeData> BurnIcon::Files() const {
  auto files = std::make_unique<QMimeData>();
  files->setUrls(addresses_);
  return files;
}

void BurnIcon::startDrag(Qt::DropActions) {
  if (addresses_.empty()) return;
  auto* drag = new QDrag(this);  // Qt deletes it when it's over
  drag->setMimeData(Files().release());
  drag->setPixmap(picture_);
  drag->exec(Qt::CopyAction);
}

void BurnIcon::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy) && !addresses_.empty()) {
    QApplication::clipboard()->setMimeData(Files().release());
    return;
  }
  QListWidget::keyPressEvent(event);
}

}  // namespace qublet
