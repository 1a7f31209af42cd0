#include "app/Toolbar.h"

#include <qdrawutil.h>
#include <QAction>
#include <QPainter>
#include <QToolButton>

#include <array>

#include "app/Main.h"
#include "platform/qt/pictures.h"

namespace qublet {
namespace {

struct ToolButton {
  const char* key;  // "Separator" for a gap
  const char* tip;
  const char* picture;
  void (Main::*handler)();  // nothing: its tool isn't there, the button is disabled
};

// By index from 1, as the buttons stand.
constexpr std::array<ToolButton, 18> kButtons{{
    {"New", "New Playlist...", "new", &Main::MFileNew_Click},
    {"Open", "Open Playlist...", "open", &Main::MFileOpen_Click},
    {"Save", "Save Playlist...", "save", &Main::ToolbarSave_Click},
    {"Separator", "", "", nullptr},
    {"Add Items", "Add Files...", "add", &Main::MEditAddDir_Click},
    {"Remove Items", "Remove selected Files...", "remove", &Main::MEditRemove_Click},
    {"Separator", "", "", nullptr},
    {"Move Items Up", "Move selected Files up...", "move-up", &Main::MEditMoveUp_Click},
    {"Move Items Down", "Move selected Files down...", "move-down", &Main::MEditMoveDown_Click},
    {"Separator", "", "", nullptr},
    {"Play Items", "Play the selected Files...", "play", &Main::MEditPlaySel_Click},
    {"Preview Playlist", "Preview the Playlist...", "preview", &Main::MEditPlayList_Click},
    {"Edit Id3 Tag", "Get the File info/Edit the ID3 Tag...", "tag", nullptr},
    {"Separator", "", "", nullptr},
    {"Tools Drop Down", "Special Functions", "tools", nullptr},
    {"Separator", "", "", nullptr},
    {"Help", "View the Help file...", "help", nullptr},
    {"Separator", "", "", nullptr},
}};

QAction* MakeButton(const ToolButton& button, Main& main) {
  auto* action = new QAction(Picture(QString::fromUtf8(button.picture)), QString::fromUtf8(button.key), &main);
  action->setObjectName(QStringLiteral("Toolbar1 %1").arg(QString::fromUtf8(button.key)));
  action->setToolTip(QString::fromUtf8(button.tip));
  action->setEnabled(button.handler != nullptr);
  if (button.handler != nullptr) {
    QObject::connect(action, &QAction::triggered, &main, [&main, handler = button.handler] { (main.*handler)(); });
  }
  return action;
}

}  // namespace

Toolbar::Toolbar(Main& main) : QToolBar(&main) {
  setObjectName(QStringLiteral("Toolbar1"));
  setWindowTitle(tr("Toolbar"));
  setMovable(false);
  for (const ToolButton& button : kButtons) {
    if (button.tip[0] == '\0') {
      addSeparator();
    } else {
      addAction(MakeButton(button, main));
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
  for (QToolButton* button : findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) button->setAutoRaise(flat_);
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

}  // namespace qublet
