#include "app/commands.h"

#include <algorithm>

#include "app/Main.h"
#include "platform/qt/pictures.h"

namespace qublet {

namespace {

QAction* MakeAction(const Command& command, Main& main) {
  auto* action = new QAction(QString::fromUtf8(command.caption), &main);
  action->setObjectName(QString::fromUtf8(command.name));
  action->setShortcut(QKeySequence(QString::fromUtf8(command.shortcut), QKeySequence::PortableText));
  action->setStatusTip(QString::fromUtf8(command.tip));
  action->setCheckable(command.checkable);
  action->setEnabled(command.handler != nullptr);
  // The window knows it too, so that its key works while the menus are hidden.
  main.addAction(action);
  if (command.handler != nullptr) {
    QObject::connect(action, &QAction::triggered, &main, [&main, handler = command.handler] { main.Run(handler); });
  }
  return action;
}

}  // namespace

const Command& CommandNamed(std::string_view name) {
  return *std::ranges::find(kCommands, name, &Command::name);
}

MenuEntries BuildMenus(QMenuBar& bar, Main& main) {
  MenuEntries entries;
  std::vector<QMenu*> open;  // the menus that lead to the present depth
  for (const Command& command : kCommands) {
    open.resize(static_cast<std::size_t>(command.depth));
    if (command.IsSeparator()) {
      QAction* separator = open.back()->addSeparator();
      separator->setObjectName(QString::fromUtf8(command.name));
      entries[separator->objectName()] = separator;
    } else if (command.IsSubmenu()) {
      const QString caption = QString::fromUtf8(command.caption);
      QMenu* menu = open.empty() ? bar.addMenu(caption) : open.back()->addMenu(caption);
      menu->setObjectName(QString::fromUtf8(command.name));
      entries[menu->objectName()] = menu->menuAction();
      open.push_back(menu);
    } else {
      QAction* action = MakeAction(command, main);
      open.back()->addAction(action);
      entries[action->objectName()] = action;
    }
  }
  bar.removeAction(entries[QStringLiteral("MHidOption")]);
  return entries;
}

void EnableEntry(QAction& entry, bool enabled) {
  entry.setEnabled(enabled && CommandNamed(entry.objectName().toStdString()).handler != nullptr);
}

void SetMenuBitmaps(const MenuEntries& entries) {
  struct MenuPicture {
    const char* entry;
    std::size_t image;  // in ImageList1
  };
  constexpr std::array<MenuPicture, 17> kMenuPictures{{{"MFileNew", 1},
                                                       {"MFileOpen", 2},
                                                       {"MFileSave", 3},
                                                       {"MFileSaveAs", 3},
                                                       {"MFileSaveRel", 13},
                                                       {"MEditPlay", 8},
                                                       {"MEditAddDir", 4},
                                                       {"MEditRemove", 5},
                                                       {"MEditMoveUp", 6},
                                                       {"MEditMoveDown", 7},
                                                       {"MEditId3", 10},
                                                       {"MViewDetails", 10},
                                                       {"MToolsFilter", 13},
                                                       {"MToolsSearch", 14},
                                                       {"MToolsRename", 12},
                                                       {"MHelpHelp", 15},
                                                       {"MHelpQuickguide", 15}}};
  for (const MenuPicture& picture : kMenuPictures) {
    if (QAction* entry = entries.value(QString::fromUtf8(picture.entry))) {
      entry->setIcon(Picture(QString::fromUtf8(ImageList1[picture.image])));
    }
  }
}

}  // namespace qublet
