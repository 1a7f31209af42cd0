#include "app/StatusPanel.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kPictureSide = 16;

class PanelText : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), Elided(),
                          foregroundRole());
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const QString tip = Elided() == text() ? QString() : ShownTip(text().toStdString());
    QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
  }

 private:
  QString Elided() const { return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width()); }
};

}  // namespace

StatusPanel::StatusPanel(int number, const QString& name, QWidget* parent)
    : QFrame(parent), picture_(new QLabel(this)), text_(new PanelText(this)) {
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

void StatusPanel::KeepRoomFor(const QString& text) {
  keeps_room_ = true;
  text_->setText(text);
  Widen();
  text_->setText(own_text_);
}

void StatusPanel::TakeTheRest() {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void StatusPanel::Widen() {
  const int wanted = sizeHint().width();
  if (keeps_room_ && wanted > minimumWidth()) setFixedWidth(wanted);
}

void StatusPanel::ShowText(const QString& text) {
  own_text_ = text;
  text_->setText(text);
  Widen();
}

void StatusPanel::ShowTip(const QString& tip) {
  text_->setText(tip.isEmpty() ? own_text_ : tip);
}

void StatusPanel::ShowPicture(const QIcon& picture, const QString& meaning) {
  picture_->setPixmap(picture.pixmap(kPictureSide));
  picture_->setAccessibleName(meaning);
  picture_->setToolTip(meaning);
  picture_->show();
  Widen();
}

void StatusPanel::ClearPicture() {
  picture_->hide();
}

}  // namespace qublet
