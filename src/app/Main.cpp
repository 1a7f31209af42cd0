#include "app/Main.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QToolTip>

#include "app/ToolbarForm.h"
#include "app/appearance.h"
#include "app/command_line.h"
#include "app/commands.h"
#include "app/placement.h"
#include "platform/program.h"
#include "platform/qt/pictures.h"
#include "platform/qt/redraw.h"
#include "platform/qt/shown_text.h"
#include "playlist/list_status.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/formats.h"
#include "settings/application.h"

namespace qublet {
namespace {

constexpr int kPluginRoom = 9;
constexpr int kTipDelay = 200;      // milliseconds
constexpr int kRoomBelowMenus = 2;  // pixels

}  // namespace

Main::Main(Document& document, AppSettings& settings, Services services, Session::Places places)
    : document_(document),
      settings_(settings),
      services_(services),
      thousands_separator_(UserThousandsSeparator()),
      rows_(std::make_unique<RowModel>(document.ListView1)) {
  setupUi(this);
  BuildList();
  BuildStatusBar();
  entries_ = BuildMenus(*MainMenu, *this);
  BuildRecentMenu();
  BuildPluginMenu();
  BuildToolbar();
  MainView& view = *this;
  Session::Window& window = *this;
  feedback_ = std::make_unique<WindowFeedback>(*ListView1, Panels[3]->Text(), this);
  items_ = std::make_unique<Items>(document_, services_.files, *feedback_, view, thousands_separator_);
  playlist_files_ = std::make_unique<PlaylistFiles>(
      document_, *items_, settings_,
      PlaylistFiles::Services{services_.files, services_.dialogs, services_.clock, *feedback_}, view);
  list_commands_ =
      std::make_unique<ListCommands>(document_, *items_, settings_,
                                     ListCommands::Services{services_.files, services_.dialogs, services_.shell,
                                                            services_.random, services_.collation, *feedback_},
                                     view);
  play_ = std::make_unique<PlayCommands>(
      document_, settings_, *items_,
      PlayCommands::Services{services_.files, services_.dialogs, *feedback_, services_.shell, services_.associations,
                             services_.players},
      places.program_folder);
  session_ = std::make_unique<Session>(document_, settings_, *items_, services_.files, services_.store,
                                       services_.startup, std::move(places), window);
  list_events_ = std::make_unique<ListEvents>(
      document_, *items_, services_.files, *feedback_, view,
      ListEvents::Places{*ListView1, *entries_.value(QStringLiteral("MEdit"))->menu(), [this] { Relayout(); }});
  Connect();
}

Main::~Main() = default;

void Main::BuildList() {
  ListView1->ShowRows(rows_.get());
  for (int column = 0; column < kColumnCount; ++column) {
    const int width = kColumns[static_cast<std::size_t>(column)].width;
    ListView1->setColumnHidden(column, width == 0);
    if (width > 0) ListView1->setColumnWidth(column, width);
  }
}

void Main::BuildStatusBar() {
  const std::array<QString, 4> names{tr("Items"), tr("Length"), tr("Size"), tr("Activity")};
  for (std::size_t i = 0; i < Panels.size(); ++i) {
    Panels[i] = new StatusPanel(static_cast<int>(i) + 1, names[i], StatusBar1);
    const bool last = i + 1 == Panels.size();
    Panels[i]->setMinimumWidth(last ? 0 : 110);
    // A long path in the last panel is cut, it never widens the window.
    if (last) Panels[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    StatusBar1->addWidget(Panels[i], last ? 1 : 0);
  }
}

void Main::BuildRecentMenu() {
  auto* menu = MainMenu->findChild<QMenu*>(QStringLiteral("MFileRec"));
  for (std::size_t i = 0; i < MFileRecent.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    MFileRecent[i] = menu->addAction(QString());
    MFileRecent[i]->setObjectName(QStringLiteral("MFileRecent%1").arg(number));
    connect(MFileRecent[i], &QAction::triggered, this, [this, number] {
      if (!feedback_->Busy()) playlist_files_->MFileRecent_Click(number);
    });
  }
  RefreshRecentMenu();
}

// Until a plug-in is known, the last entry says so and the others are hidden.
void Main::BuildPluginMenu() {
  auto* menu = MainMenu->findChild<QMenu*>(QStringLiteral("MToolsPlugins"));
  for (int number = 1; number <= kPluginRoom; ++number) {
    QAction* entry = menu->addAction(tr("None Loaded..."));
    entry->setObjectName(QStringLiteral("plug%1").arg(number));
    entry->setEnabled(false);
    entry->setVisible(number == kPluginRoom);
  }
}

void Main::BuildToolbar() {
  Toolbar1 = new Toolbar(this);
  // The bars are shown and hidden by the View menu; the toolkit's own menu for that would be a second one.
  setContextMenuPolicy(Qt::NoContextMenu);
  connect(Toolbar1, &Toolbar::commandWanted, this,
          [this](const char* command) { Toolbar1_ButtonClick(CommandNamed(command)); });
  connect(Toolbar1, &Toolbar::customiseWanted, this, &Main::Toolbar1_Customise);
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T), this), &QShortcut::activated, this,
          &Main::Toolbar1_Customise);
  connect(Toolbar1, &Toolbar::menuWanted, this,
          [this](QPoint point) { entries_.value(QStringLiteral("MHidOption"))->menu()->popup(point); });
}

void Main::Connect() {
  connect(ListView1, &RowList::rowsSelected, this, [this] { ListView1_Click(); });
  connect(ListView1, &RowList::keyPressed, this, &Main::ListView1_KeyDown);
  connect(ListView1, &RowList::doubleClickedAnywhere, this, [this] { play_->PlayDoubleClicked(); });
  connect(ListView1->header(), &QHeaderView::sectionClicked, this,
          [this](int section) { list_commands_->ListView1_ColumnClick(section + 1); });
}

void Main::Load(const std::string& command_line, QWidget* splash) {
  document_.Dropping = false;
  ListView1_Click();
  items_->MEditSelNone_Click();
  ShowCaption();
  if (session_->FirstStart()) {
    session_->BeginFirstStart();
  } else {
    session_->SetFormState(false);
  }
  SetMenuBitmaps(entries_);
  DetectPlayer();
  if (splash != nullptr) splash->hide();
  QTimer::singleShot(kTipDelay, this, &Main::TipTimer_Timer);
  MFileNew_Click();
  OpenCommandLine(command_line);
  RegisterAccessoryTools();
  // The update timer starts here.
  document_.PlaylistChanged = false;
  ListView1_Click();
}

void Main::OpenCommandLine(const std::string& command_line) {
  if (command_line.empty()) {
    if (settings_.RESPLAYLIST) items_->AddStuff(session_->LastPlaylist(), false);
    return;
  }
  switch (GetPlatformId()) {
    case 2:
      OpenCommandLineSplit(*items_, command_line);
      break;
    case 3:
      OpenCommandLineQuoted(*items_, command_line);
      break;
    default:
      break;
  }
}

void Main::closeEvent(QCloseEvent* event) {
  // The window never closes by itself: leaving is the unload's affair.
  event->ignore();
  if (!feedback_->Busy()) Form_Unload();
}

void Main::Form_Unload() {
  if (!playlist_files_->PromptSaveFirst()) return;
  session_->SetFormState(true);
  emit ended();
}

void Main::Run(void (Main::*handler)()) {
  if (!feedback_->Busy()) (this->*handler)();
}

void Main::MFileNew_Click() {
  playlist_files_->MFileNew_Click();
}
void Main::MFileOpen_Click() {
  playlist_files_->MFileOpen_Click();
}
void Main::MFileImport_Click() {
  playlist_files_->OpenPlaylistFile(true);
}
void Main::MFileSave_Click() {
  playlist_files_->SavePlaylistFile(false, false);
}
void Main::MFileSaveAs_Click() {
  playlist_files_->SavePlaylistFile(true, false);
}
void Main::MFileSaveRel_Click() {
  playlist_files_->SavePlaylistFile(true, true);
}
void Main::MFileExit_Click() {
  Form_Unload();
}
void Main::MEditAddDir_Click() {
  const std::optional<std::string> path =
      services_.dialogs.BrowseForFolder("Select Folder...", document_.WorkFolder, true);
  if (path) {
    document_.WorkFolder = *path;
    items_->AddStuff(*path, true);
  }
  ListView1_Click();
}

void Main::MViewToolbar_Click() {
  settings_.TA = !settings_.TA;
  ShowBars();
}

void Main::MViewStatusBar_Click() {
  settings_.SA = !settings_.SA;
  ShowBars();
}

// The buttons are always enabled; one whose tool isn't there says so.
void Main::Toolbar1_ButtonClick(const Command& command) {
  const bool saves = command.handler == &Main::MFileSave_Click;
  if (saves && settings_.SActi) {
    Run(&Main::MFileSaveRel_Click);
  } else if (command.handler != nullptr) {
    Run(command.handler);
  } else {
    QToolTip::showText(QCursor::pos(), QString::fromUtf8(command.tip), Toolbar1);
  }
}

void Main::Toolbar1_Customise() {
  ToolbarForm form(Toolbar1->Layout(), this);
  PositionForm(form);
  if (form.exec() != QDialog::Accepted) return;
  Toolbar1->ShowLayout(form.Layout());
  session_->Keep(kToolbarLayout, LayoutText(form.Layout()));
}

void Main::PositionForm(QWidget& frm) const {
  const QSize frame = frameGeometry().size() - size();
  const QRect screen = this->screen()->geometry();
  frm.move(PlaceBeside(frameGeometry(), frm.size() + frame, screen, frm.pos()));
}

void Main::TipTimer_Timer() {
  const std::string wanted = session_->Kept(kShowTips);
  const Command& tips = CommandNamed("MHelpTip");
  if ((wanted.empty() || wanted == "1") && tips.handler != nullptr) Run(tips.handler);
}

void Main::MViewDetails_Click() {
  play_->ShowProperties(this, thousands_separator_, [this](QWidget& frm) { PositionForm(frm); });
}

void Main::MViewRefresh_Click() {
  items_->MViewRefresh_Click();
}

void Main::ListView1_KeyDown(int key) {
  if (key == Qt::Key_Insert) MEditAddDir_Click();
  if (key == Qt::Key_Delete) MEditRemove_Click();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) MEditPlaySel_Click();
}

void Main::ListView1_Click() {
  const LockRedraw lock(*this);
  const ListStatus status = WorkOutStatus(document_.ListView1, services_.files, settings_, thousands_separator_);
  for (std::size_t i = 0; i < status.panels.size(); ++i) {
    Panels[i]->ShowText(QString::fromStdString(status.panels[i]));
    if (!status.warnings[i]) continue;
    if (*status.warnings[i]) {
      Panels[i]->ShowPicture(Picture(QStringLiteral("warning")), tr("The limit is reached"));
    } else {
      Panels[i]->ClearPicture();
    }
  }
  for (const CommandState& command : status.commands) {
    if (QAction* entry = entries_.value(QString::fromUtf8(command.name))) EnableEntry(*entry, command.enabled);
  }
}

void Main::ShowCaption() {
  setWindowTitle(ShownCaption(CaptionText(AppTitle(), document_.CurrentPlaylist)));
}

void Main::RefreshRecentMenu() {
  const Collection captions = RecentCaptions(document_.RecentFiles, settings_);
  MainMenu->findChild<QMenu*>(QStringLiteral("MFileRec"))->setEnabled(!captions.empty());
  for (std::size_t i = 0; i < MFileRecent.size(); ++i) {
    const bool used = i < captions.size();
    MFileRecent[i]->setText(used ? ShownInMenu(captions[i]) : QString());
    MFileRecent[i]->setVisible(used);
  }
}

void Main::ApplyQUBLETSettings() {
  Toolbar1->ShowLayout(LayoutFromText(session_->Kept(kToolbarLayout)));
  Toolbar1->SetLook(settings_.Flat, settings_.ThreeD);
  for (QAction* menu : MainMenu->actions()) menu->setVisible(settings_.Visible);
  ShowBars();
  addToolBar(settings_.Align == 1 ? Qt::TopToolBarArea : Qt::BottomToolBarArea, Toolbar1);
  ApplyListLook(settings_, *ListView1);
  ApplyPlace(settings_, *this);
}

void Main::ShowBars() {
  Toolbar1->setVisible(settings_.TA);
  StatusBar1->setVisible(settings_.SA);
  entries_.value(QStringLiteral("MViewToolbar"))->setChecked(settings_.TA);
  entries_.value(QStringLiteral("MViewStatusBar"))->setChecked(settings_.SA);
  Relayout();
}

// The bars are laid out by the toolkit; the list keeps a little room below the menus where no toolbar stands.
void Main::Relayout() {
  const bool below_toolbar = settings_.TA && settings_.Align == 1;
  ClientLayout->setContentsMargins(0, below_toolbar ? 0 : kRoomBelowMenus, 0, 0);
}

void Main::CopyState(AppSettings& settings) {
  CopyWindowState(StateOf(*this, *ListView1, *Toolbar1, *StatusBar1, settings), settings);
}

ColumnWidths Main::DefColumnWidths() const {
  ColumnWidths widths{};
  for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = static_cast<std::int16_t>(kColumns[i].width);
  return widths;
}

ScreenSize Main::Screen() const {
  return ScreenInTwips();
}

}  // namespace qublet
