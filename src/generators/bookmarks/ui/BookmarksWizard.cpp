#include "generators/bookmarks/ui/BookmarksWizard.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <utility>

#include "desk/activation.h"
#include "platform/qt/pictures.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kLettersAcross = 64;

}  // namespace

BookmarksWizard::BookmarksWizard(Engine& engine, const Commands& commands, bool AddMode, QWidget* parent)
    : BarlessDialog(parent),
      commands_(commands),
      bookmarker_(engine, AddMode, {[this] { Render(); }, [this] { reject(); }}) {
  setupUi(this);
  if (AddMode) CmdNext->setToolTip(tr("Keep the selected items in the category"));
  connect(lstCategory, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    bookmarker_.lstCategory_ItemClick(lstCategory->indexOfTopLevelItem(item));
  });
  OnClick(CmdNext, [this] { CmdNext_Click(); });
  OnClick(cmdAddCategory, [this] { bookmarker_.cmdAddCategory_Click(); });
  OnClick(cmdDelCategory, [this] { bookmarker_.cmdDelCategory_Click(); });
  OnClick(CmdClose, [this] { reject(); });
  AddKey(Qt::Key_Insert, cmdAddCategory);
  AddKey(Qt::Key_Delete, cmdDelCategory);
  // A window can't be closed before it is quite there.
  new Activation(*this, [this](Activation::Cause) {
    QMetaObject::invokeMethod(
        this, [this] { commands_.Run([this] { bookmarker_.Activate(); }); }, Qt::QueuedConnection);
  });
  Render();
  lstCategory->setFocus();
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
}

void BookmarksWizard::OnClick(QPushButton* button, std::function<void()> command) {
  connect(button, &QPushButton::clicked, this, [this, command = std::move(command)] { commands_.Run(command); });
}

void BookmarksWizard::AddKey(Qt::Key key, QPushButton* button) {
  auto* shortcut = new QShortcut(key, lstCategory);
  shortcut->setContext(Qt::WidgetShortcut);
  connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
}

void BookmarksWizard::CmdNext_Click() {
  setCursor(Qt::WaitCursor);
  bookmarker_.CmdNext_Click();
  unsetCursor();
}

void BookmarksWizard::Render() {
  const BookmarksView& view = bookmarker_.view;
  CmdNext->setText(QString::fromStdString(view.CmdNext));
  lblInfo->setText(QString::fromStdString(view.lblInfo));
  {
    const QSignalBlocker unheard(lstCategory);
    lstCategory->clear();
    for (const std::string& category : view.lstCategory) {
      auto* row = new QTreeWidgetItem(lstCategory, {ShownText(category)});
      row->setIcon(0, Picture(QStringLiteral("bookmark")));
      row->setToolTip(0, ShownTip(category));
    }
    lstCategory->setCurrentItem(lstCategory->topLevelItem(view.selected));
  }
  for (QPushButton* button : {CmdNext, cmdDelCategory}) button->setEnabled(view.selected >= 0);
}

}  // namespace qublet
