#include "app/StatusPanel.h"

#include <QHBoxLayout>

namespace qublet {
namespace {

constexpr int kPictureSide = 16;

}  // namespace

StatusPanel::StatusPanel(int number, const QString& name, QWidget* parent)
    : QFrame(parent), picture_(new QLabel(this)), text_(new QLabel(this)) {
  // The text is what there is to be read; its frame says what it's about.
  setAccessibleName(name);
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  text_->setObjectName(QStringLiteral("Panel%1").arg(number));
  text_->setTextFormat(Qt::PlainText);
  picture_->setObjectName(QStringLiteral("Panel%1Picture").arg(number));
  picture_->hide();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 1, 4, 1);
  layout->addWidget(picture_);
  layout->addWidget(text_, 1);
}

void StatusPanel::ShowPicture(const QIcon& picture, const QString& meaning) {
  picture_->setPixmap(picture.pixmap(kPictureSide));
  picture_->setAccessibleName(meaning);
  picture_->setToolTip(meaning);
  picture_->show();
}

void StatusPanel::ClearPicture() {
  picture_->hide();
}

}  // namespace qublet
