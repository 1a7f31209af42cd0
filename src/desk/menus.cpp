#include "desk/menus.h"

#include <QKeySequence>
#include <QMenu>
#include <vector>

#include "platform/qt/pictures.h"

namespace qublet {
namespace {

QString NameOf(const MenuRow& row) {
  return QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size()));
}

}  // namespace

Menus::Menus(QMenuBar& bar, QWidget& window, const Commands& commands) : commands_(commands) {
  std::vector<QMenu*> open;  // the menus that lead to the present depth
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    const MenuRow& row = kMenu[i];
    open.resize(static_cast<std::size_t>(row.depth));
    if (row.IsSeparator()) {
      actions_[i] = open.back()->addSeparator();
      actions_[i]->setObjectName(NameOf(row));
    } else if (row.IsSubmenu()) {
      const QString caption = QString::fromUtf8(row.caption);
      QMenu* menu = open.empty() ? bar.addMenu(caption) : open.back()->addMenu(caption);
      menu->setObjectName(NameOf(row));
      actions_[i] = menu->menuAction();
      open.push_back(menu);
    } else {
      actions_[i] = MakeAction(CommandName::At(i), window);
      open.back()->addAction(actions_[i]);
    }
  }
  bar.removeAction(&(*this)["MHidOption"]);
}

QAction* Menus::MakeAction(CommandName command, QWidget& window) const {
  const MenuRow& row = command.Row();
  auto* action = new QAction(QString::fromUtf8(row.caption), &window);
  action->setObjectName(NameOf(row));
  action->setShortcut(QKeySequence(QString::fromUtf8(row.shortcut), QKeySequence::PortableText));
  action->setCheckable(row.checkable);
  if (!row.IsSeparator() && !row.IsSubmenu()) action->setStatusTip(QString::fromUtf8(row.tip));
  window.addAction(action);
  const Commands* commands = &commands_;
  QObject::connect(action, &QAction::triggered, &window, [commands, command] { commands->Run(command); });
  return action;
}

void Menus::ShowState(const ListFacts& list) const {
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    const CommandName command = CommandName::At(i);
    const bool is_entry = !command.Row().IsSeparator() && !command.Row().IsSubmenu();
    // A submenu that doesn't depend on the list may depend on what it holds, which its owner knows.
    if (is_entry || command.Row().available != when::Always) {
      actions_[i]->setEnabled(commands_.IsEnabled(command, list));
    }
  }
}

void Menus::SetMenuBitmaps() const {
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    if (*kMenu[i].picture != '\0') actions_[i]->setIcon(Picture(QString::fromUtf8(kMenu[i].picture)));
  }
}

}  // namespace qublet
