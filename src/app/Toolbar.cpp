#include "app/Toolbar.h"

#include <qdrawutil.h>
#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

#include "platform/qt/pictures.h"

namespace qublet {

Toolbar::Toolbar(QWidget* window) : QToolBar(window) {
  setObjectName(QStringLiteral("Toolbar1"));
  setWindowTitle(tr("Toolbar"));
  setAccessibleName(windowTitle());
  setAccessibleDescription(tr("A double click beside the buttons customises them"));
  setMovable(false);
  for (const int button : DefaultToolbarLayout()) {
    if (button != kSeparatorButton) buttons_[button] = MakeButton(kToolButtons[static_cast<std::size_t>(button)]);
  }
  ShowLayout(DefaultToolbarLayout());
}

QAction* Toolbar::MakeButton(const ToolButton& button) {
  auto* action = new QAction(Picture(QString::fromUtf8(button.picture)), QString::fromUtf8(button.key), this);
  action->setObjectName(QStringLiteral("Toolbar1 %1").arg(QString::fromUtf8(button.key)));
  action->setToolTip(QString::fromUtf8(button.tip));
  if (button.command) {
    connect(action, &QAction::triggered, this, [this, command = *button.command] { emit commandWanted(command); });
  } else {
    action->setMenu(MakeDropDown());
  }
  return action;
}

QMenu* Toolbar::MakeDropDown() {
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("Toolbar1 Menu"));
  for (const ToolEntry& entry : kToolsDropDown) {
    const MenuRow& row = entry.command.Row();
    QAction* action = menu->addAction(QString::fromUtf8(entry.caption));
    action->setObjectName(QStringLiteral("Toolbar1 %1").arg(QString::fromUtf8(row.name.data())));
    action->setStatusTip(QString::fromUtf8(row.tip));
    connect(action, &QAction::triggered, this, [this, &entry] { emit commandWanted(entry.command); });
  }
  return menu;
}

void Toolbar::ShowLayout(const ToolbarLayout& layout) {
  layout_ = layout;
  for (QAction* action : actions()) {
    removeAction(action);
    if (action->isSeparator()) delete action;
  }
  for (const int button : layout_) {
    if (button == kSeparatorButton) {
      addSeparator();
    } else {
      addAction(buttons_.at(button));
    }
  }
}

void Toolbar::SetLook(bool flat, bool three_d) {
  flat_ = flat;
  three_d_ = three_d;
  RaiseButtons();
  update();
}

void Toolbar::RaiseButtons() {
  for (QToolButton* button : findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) {
    button->setAutoRaise(flat_);
    button->setPopupMode(QToolButton::InstantPopup);
  }
}

void Toolbar::actionEvent(QActionEvent* event) {
  QToolBar::actionEvent(event);
  RaiseButtons();
}

void Toolbar::paintEvent(QPaintEvent* event) {
  QToolBar::paintEvent(event);
  if (!three_d_) return;
  QPainter painter(this);
  qDrawShadePanel(&painter, rect(), palette());
}

void Toolbar::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && actionAt(event->position().toPoint()) == nullptr) emit customiseWanted();
}

void Toolbar::mouseReleaseEvent(QMouseEvent* event) {
  QToolBar::mouseReleaseEvent(event);
  if (event->button() == Qt::RightButton) emit menuWanted(event->globalPosition().toPoint());
}

// The menu comes by the release of the right button, not a second time by this; the key has no release.
void Toolbar::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) emit menuWanted(event->globalPos());
}

}  // namespace qublet
