#include "media/editor/ui/Id3Info.h"

#include <QElapsedTimer>
#include <QFormLayout>
#include <QKeySequence>
#include <QShortcut>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "media/editor/ui/double_clicks.h"
#include "media/editor/ui/page_turning.h"
#include "platform/qt/input_lock.h"
#include "platform/qt/pictures.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr qint64 kRepaintEvery = 20;  // milliseconds

QKeySequence Keys(const char* portable) {
  return QKeySequence(QString::fromUtf8(portable), QKeySequence::PortableText);
}

QString TipOf(const EditorCommand& command) {
  const QString caption = QString::fromUtf8(command.caption);
  const QString keys = Keys(command.shortcut).toString(QKeySequence::NativeText);
  return keys.isEmpty() ? caption : QStringLiteral("%1 (%2)").arg(caption, keys);
}

}  // namespace

Id3Info::Id3Info(Engine& engine, Background& background, QWidget* parent)
    : QDialog(parent), engine_(engine), editor_(engine, codec_, background) {
  setupUi(this);
  MakeIndicators();
  MakeCommands();
  MakeKeys();
  BindDoubleClicks(*this, editor_);
  AlignCaptions();
  Id3MainTab->setCurrentIndex(0);
  resize(sizeHint());
  connect(CmdClose, &QPushButton::clicked, this, &QDialog::reject);
  connect(Id3MainTab, &QTabWidget::currentChanged, this, &Id3Info::Id3MainTab_Click);
  BindPages();
}

void Id3Info::BindPages() {
  const CommandRunner run = [this](const std::function<void()>& command) { Run(command); };
  Id3v1Tab->Bind(editor_, run);
  Id3v2Tab->Bind(editor_, run);
  connect(GeneralTab, &GeneralPage::FileInfoReadOnlyClicked, this,
          [this] { Run([this] { editor_.FileInfoReadOnly_Click(); }); });
  connect(GeneralTab, &GeneralPage::FileInfoArchiveClicked, this,
          [this] { Run([this] { editor_.FileInfoArchive_Click(); }); });
  connect(Id3v1Tab, &Id3v1Page::PresentClicked, this,
          [this](bool checked) { Run([this, checked] { editor_.ID3v1Present_Click(checked); }); });
  connect(Id3v2Tab, &Id3v2Page::PresentClicked, this,
          [this](bool checked) { Run([this, checked] { editor_.ID3v2Present_Click(checked); }); });
}

// Opening is the only way to the front that loads the selection: a box that closes over the window, or another
// program that the user comes back from, must not cost what was written.
void Id3Info::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) Run([this] { editor_.LoadSelection(); });
  QDialog::showEvent(event);
}

void Id3Info::MakeIndicators() {
  FileInfoIndicator = new PageIndicator(QStringLiteral("FileInfoIndicator"), tr("File Info"), this);
  Id31Indicator = new PageIndicator(QStringLiteral("Id31Indicator"), tr("ID3v1"), this);
  Id32Indicator = new PageIndicator(QStringLiteral("Id32Indicator"), tr("ID3v2"), this);
  int page = 0;
  for (PageIndicator* mark : {FileInfoIndicator, Id31Indicator, Id32Indicator})
    Id3MainTab->tabBar()->setTabButton(page++, QTabBar::LeftSide, mark);
}

// The fields of all pages begin at the same place.
void Id3Info::AlignCaptions() {
  const QList<QFormLayout*> forms = findChildren<QFormLayout*>();
  int widest = 0;
  const auto for_each = [&forms](const auto& look) {
    for (const QFormLayout* form : forms) {
      for (int row = 0; row < form->rowCount(); ++row) {
        if (const QLayoutItem* item = form->itemAt(row, QFormLayout::LabelRole)) look(*item->widget());
      }
    }
  };
  for_each([&](const QWidget& caption) { widest = std::max(widest, caption.sizeHint().width()); });
  for_each([&](QWidget& caption) { caption.setMinimumWidth(widest); });
}

void Id3Info::MakeCommands() {
  for (std::size_t i = 0; i < kEditorCommands.size(); ++i) {
    const EditorCommand& command = kEditorCommands[i];
    if (*command.name == '\0') {
      Toolbar1->addSeparator();
      continue;
    }
    auto* action = new QAction(Picture(QString::fromUtf8(command.picture)), QString::fromUtf8(command.caption), this);
    action->setObjectName(u"Toolbar1 "_qs + QString::fromUtf8(command.caption));
    // A key of the window's own: one that can't be used now doesn't go on to the pages' tabs.
    AddKey(command.shortcut, [action] { action->trigger(); });
    action->setToolTip(TipOf(command));
    addAction(action);
    Toolbar1->addAction(action);
    Toolbar1->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    connect(action, &QAction::triggered, this, [this, &command] { Command_Click(command); });
    actions_[i] = action;
    if (auto* button = findChild<QPushButton*>(QString::fromUtf8(command.name)))
      connect(button, &QPushButton::clicked, this, [this, &command] { Command_Click(command); });
  }
  CmdPrev->setIcon(Picture(QStringLiteral("previous")));
  CmdNext->setIcon(Picture(QStringLiteral("next")));
}

void Id3Info::MakeKeys() {
  for (const int step : {1, -1}) {
    const char* key = step > 0 ? "Ctrl+PgDown" : "Ctrl+PgUp";
    const char* inner_key = step > 0 ? "Ctrl+Shift+PgDown" : "Ctrl+Shift+PgUp";
    AddKey(key, [this, step] { TurnPage(*Id3MainTab, step); });
    AddKey(inner_key, [this, step] {
      if (QTabWidget* inner = InnerPages(*Id3MainTab)) TurnPage(*inner, step);
    });
  }
  AddKey("Ctrl+Enter", [this] {
    if (editor_.view.update) CmdUpdate_Click();
  });
}

void Id3Info::AddKey(const char* keys, const std::function<void()>& handler) {
  auto* shortcut = new QShortcut(Keys(keys), this);
  connect(shortcut, &QShortcut::activated, this, handler);
}

void Id3Info::Run(const std::function<void()>& command) {
  setCursor(Qt::WaitCursor);
  Collect();
  command();
  Render();
  unsetCursor();
}

void Id3Info::Collect() {
  editor_.page = static_cast<EditorPage>(Id3MainTab->currentIndex());
  GeneralTab->Collect(editor_.view.file);
  Id3v1Tab->Collect(editor_.view.form);
  Id3v2Tab->Collect(editor_);
}

void Id3Info::Render() {
  const EditorView& view = editor_.view;
  for (std::size_t i = 0; i < kEditorCommands.size(); ++i) {
    const EditorCommand& command = kEditorCommands[i];
    if (actions_[i] == nullptr || command.enabled == nullptr) continue;
    actions_[i]->setEnabled(view.*command.enabled);
    if (auto* button = findChild<QPushButton*>(QString::fromUtf8(command.name)))
      button->setEnabled(view.*command.enabled);
  }
  GeneralTab->Show(view);
  Id3v1Tab->Show(view);
  Id3v2Tab->Show(editor_, engine_.thousands_separator);
  RenderTabs();
  lblReport->Report(ShownText(view.report));
}

// The page to be seen comes before the others are taken away, or the toolkit would choose one.
void Id3Info::RenderTabs() {
  using State = PageIndicator::State;
  const EditorView& view = editor_.view;
  const auto pages = {EditorPage::kId3v1, EditorPage::kId3v2};
  if (view.tag_pages) {
    for (const EditorPage page : pages) Id3MainTab->setTabEnabled(static_cast<int>(page), true);
  }
  Id3MainTab->setCurrentIndex(static_cast<int>(editor_.page));
  if (!view.tag_pages) {
    for (const EditorPage page : pages) Id3MainTab->setTabEnabled(static_cast<int>(page), false);
  }
  FileInfoIndicator->Show(view.unusable ? State::kUnusable : State::kOn);
  Id31Indicator->Show(view.v1_enabled ? State::kOn : State::kOff);
  Id32Indicator->Show(view.v2_enabled ? State::kOn : State::kOff);
}

void Id3Info::Command_Click(const EditorCommand& command) {
  if (command.run == nullptr) return CmdUpdate_Click();
  Run([this, &command] { (editor_.*command.run)(); });
}

// The window goes on painting; of what is pressed meanwhile only Escape counts.
void Id3Info::CmdUpdate_Click() {
  InputLock lock;
  QElapsedTimer painted;
  painted.start();
  const auto progress = [&](int value, int maximum) {
    ProgressBar1->setRange(0, maximum);
    ProgressBar1->setValue(value);
    if (painted.elapsed() < kRepaintEvery) return;
    lock.Pump();
    painted.restart();
  };
  Run([&] { editor_.CmdUpdate_Click({progress, [&lock] { return lock.EscapePressed(); }}); });
  ProgressBar1->setValue(0);
}

void Id3Info::Id3MainTab_Click(int page) {
  if (page == static_cast<int>(EditorPage::kId3v2)) Id3v2Tab->ShowFirstPage();
}

}  // namespace qublet
