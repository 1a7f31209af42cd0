#include "app/Main.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QScreen>
#include <QShortcut>
#include <QStatusTipEvent>
#include <QTimer>
#include <chrono>

#include "app/ToolbarForm.h"
#include "app/appearance.h"
#include "desk/placement.h"
#include "engine/command_line.h"
#include "platform/program.h"
#include "platform/qt/pictures.h"
#include "platform/qt/redraw.h"
#include "platform/qt/shown_text.h"
#include "playlist/list_status.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/formats.h"
#include "playlist/stoppable_change.h"
#include "settings/application.h"
#include "settings/kept_values.h"

namespace qublet {
namespace {

constexpr int kTipDelay = 200;      // milliseconds
constexpr int kUpdateDelay = 2000;  // milliseconds
constexpr int kRoomBelowMenus = 2;  // pixels
constexpr std::chrono::seconds kRecoveryEvery{1};

}  // namespace

Main::Main(Engine& engine, Commands& commands, WindowFeedback& feedback)
    : engine_(engine), commands_(commands), feedback_(feedback), rows_(engine.document.ListView1) {
  setupUi(this);
  BuildList();
  BuildStatusBar();
  menus_.emplace(*MainMenu, *this, commands_);
  BuildRecentMenu();
  plugin_menu_.emplace(menus_->Submenu("MToolsPlugins"), commands_, engine_);
  BuildToolbar();
  feedback_.ShowIn(*this, [this](const QString& text) { Panels[3]->ShowText(text); });
  list_events_ = std::make_unique<ListEvents>(
      engine_, feedback_, ListEvents::Places{*ListView1, menus_->Submenu("MEdit"), [this] { Relayout(); }});
  BindOwnCommands();
  Connect();
  engine_.Show(*this, *this);
}

Main::~Main() {
  feedback_.ShowNowhere();
}

void Main::BuildList() {
  ListView1->ShowRows(&rows_);
  for (int column = 0; column < kColumnCount; ++column) {
    const int width = kColumns[static_cast<std::size_t>(column)].width;
    ListView1->setColumnHidden(column, width == 0);
    if (width > 0) ListView1->setColumnWidth(column, width);
  }
}

void Main::BuildStatusBar() {
  const std::array<QString, 3> kUsualTexts{u"Track: 9999/9999"_qs, u"99:59[9:59:59]"_qs, u"16,384 Bytes"_qs};
  const std::array<QString, 4> names{tr("Items"), tr("Length"), tr("Size"), tr("Activity")};
  for (std::size_t i = 0; i < Panels.size(); ++i) {
    Panels[i] = new StatusPanel(static_cast<int>(i) + 1, names[i], StatusBar1);
    const bool last = i + 1 == Panels.size();
    last ? Panels[i]->TakeTheRest() : Panels[i]->KeepRoomFor(kUsualTexts[i]);
    StatusBar1->addWidget(Panels[i], last ? 1 : 0);
  }
}

void Main::BuildRecentMenu() {
  for (std::size_t i = 0; i < MFileRecent.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    MFileRecent[i] = menus_->Submenu("MFileRec").addAction(QString());
    MFileRecent[i]->setObjectName(QStringLiteral("MFileRecent%1").arg(number));
    connect(MFileRecent[i], &QAction::triggered, this,
            [this, number] { commands_.Run([this, number] { engine_.playlist_files.MFileRecent_Click(number); }); });
  }
  RefreshRecentMenu();
}

void Main::BuildToolbar() {
  Toolbar1 = new Toolbar(this);
  // The bars are shown and hidden by the View menu; the toolkit's own menu for that would be a second one.
  setContextMenuPolicy(Qt::NoContextMenu);
  connect(Toolbar1, &Toolbar::commandWanted, this, &Main::Toolbar1_ButtonClick);
  connect(Toolbar1, &Toolbar::customiseWanted, this, &Main::Toolbar1_Customise);
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T), this), &QShortcut::activated, this,
          &Main::Toolbar1_Customise);
  connect(Toolbar1, &Toolbar::menuWanted, this, [this](QPoint point) { menus_->Submenu("MHidOption").popup(point); });
}

// What is about the window itself; tools bind the rest.
void Main::BindOwnCommands() {
  commands_.Bind("MFileExit", [this] { Form_Unload(); });
  commands_.Bind("MViewToolbar", [this] {
    engine_.settings.TA = !engine_.settings.TA;
    ShowBars();
  });
  commands_.Bind("MViewStatusBar", [this] {
    engine_.settings.SA = !engine_.settings.SA;
    ShowBars();
  });
}

void Main::Connect() {
  connect(ListView1, &RowList::rowsSelected, this, [this] { Refresh(); });
  connect(ListView1, &RowList::keyPressed, this, &Main::ListView1_KeyDown);
  connect(ListView1, &RowList::doubleClickedAnywhere, this, &Main::ListView1_DblClick);
  connect(ListView1->header(), &QHeaderView::sectionClicked, this, [this](int section) {
    commands_.Run([this, section] { engine_.list_commands.ListView1_ColumnClick(section + 1); });
  });
  connect(&RecoveryTimer, &QTimer::timeout, this,
          [this] { engine_.recovery.Tick(std::chrono::steady_clock::now()); });
}

void Main::Load(const std::string& command_line, QWidget* splash) {
  engine_.session.Begin();
  Refresh();
  engine_.items.MEditSelNone_Click();
  ShowCaption();
  engine_.session.RestoreOrBeginAnew();
  if (engine_.session.Kept(kMaximised) == "1") setWindowState(windowState() | Qt::WindowMaximized);
  menus_->SetMenuBitmaps();
  DetectPlayer();
  plugin_menu_->LoadPluginMenu();
  if (splash != nullptr) splash->hide();
  QTimer::singleShot(kTipDelay, this, &Main::TipTimer_Timer);
  engine_.playlist_files.MFileNew_Click();
  OpenCommandLine(command_line);
  plugin_menu_->RegisterAccessoryTools();
  engine_.session.TellOfSettingsNotKept();
  if (engine_.settings.AUDate) QTimer::singleShot(kUpdateDelay, this, &Main::updateCheckDue);
  engine_.document.PlaylistChanged = false;
  Refresh();
  RecoveryTimer.start(kRecoveryEvery);
  loaded_ = true;
}

// What waits for a player's end is there only with a player, and so is the whole menu where bookmarks are a player's.
void Main::DetectPlayer() {
  PlayerLink& player = engine_.player;
  player.PlayerAssociated = player.DetectPlayer();
  const bool has_menu = player.PlayerAssociated || !engine_.services.players.KeepBookmarks();
  for (const CommandName command : {CommandName("MToolsWinamp"), CommandName("s101")})
    (*menus_)[command].setVisible(has_menu);
  (*menus_)["MToolsWinampShutDown"].setVisible(player.PlayerAssociated);
}

void Main::OpenCommandLine(const std::string& command_line) {
  const StoppableChange change(engine_.document, feedback_);
  if (command_line.empty()) {
    if (engine_.settings.RESPLAYLIST && engine_.session.RestoreLastList())
      feedback_.ShowRemark("Recovered the last list");
    return;
  }
  switch (GetPlatformId()) {
    case 2:
      OpenCommandLineSplit(engine_.items, command_line);
      break;
    case 3:
      OpenCommandLineQuoted(engine_.items, command_line);
      break;
    default:
      break;
  }
}

void Main::closeEvent(QCloseEvent* event) {
  // The window never closes by itself: leaving is the unload's affair.
  event->ignore();
  commands_.Run("MFileExit");
}

void Main::Form_Unload() {
  if (engine_.closing.Ask()) emit ended();
}

void Main::EndUnasked() {
  if (loaded_) engine_.closing.StoreUnasked();
  emit ended();
}

bool Main::PrepareEnd(const std::function<bool()>& may_ask) {
  if (!loaded_) return true;
  engine_.closing.KeepList();
  // In the middle of a command no dialog gets an answer.
  if (!feedback_.Busy() && engine_.playlist_files.WouldAsk() && may_ask()) return engine_.closing.Ask();
  engine_.closing.StoreUnasked();
  return true;
}

// The buttons are always enabled.
void Main::Toolbar1_ButtonClick(CommandName command) {
  if (command == CommandName("MFileSave") && engine_.settings.SActi) {
    commands_.Run("MFileSaveRel");
  } else {
    commands_.Run(command);
  }
}

void Main::Toolbar1_Customise() {
  ToolbarForm form(Toolbar1->Layout(), this);
  PositionForm(*this, form);
  if (form.exec() != QDialog::Accepted) return;
  Toolbar1->ShowLayout(form.Layout());
  engine_.session.Keep(kToolbarLayout, LayoutText(form.Layout()));
}

void Main::TipTimer_Timer() {
  const std::string wanted = engine_.session.Kept(kShowTips);
  if (wanted.empty() || wanted == "1") commands_.Run("MHelpTip");
}

void Main::ListView1_KeyDown(int key) {
  if (key == Qt::Key_Insert) commands_.Run("MEditAddDir");
  if (key == Qt::Key_Delete) commands_.Run("MEditRemove");
  if (key == Qt::Key_Return || key == Qt::Key_Enter) commands_.Run("MEditPlaySel");
}

// What it plays, the user has chosen.
void Main::ListView1_DblClick() {
  commands_.Run(engine_.settings.DBLCLKACTN ? CommandName("MEditPlaySel") : CommandName("MEditPlayLoc"));
}

// What an entry does stands in the last panel: the totals stay to be read.
bool Main::event(QEvent* event) {
  if (event->type() != QEvent::StatusTip) return QMainWindow::event(event);
  Panels.back()->ShowTip(static_cast<const QStatusTipEvent*>(event)->tip());
  return true;
}

void Main::ShowList(bool shown) {
  if (!shown) list_had_focus_ = focusWidget() == ListView1;
  ListView1->setVisible(shown);
  if (shown && list_had_focus_) ListView1->setFocus();
}

void Main::ListView1_Click() {
  const WaitCursor wait(feedback_);
  const LockRedraw lock(*this);
  const ListStatus status = WorkOutStatus(engine_.document.ListView1, engine_.services.files, engine_.settings,
                                          engine_.thousands_separator);
  for (std::size_t i = 0; i < status.panels.size(); ++i) {
    Panels[i]->ShowText(QString::fromStdString(status.panels[i]));
    if (!status.warnings[i]) continue;
    if (*status.warnings[i]) {
      Panels[i]->ShowPicture(Picture(QStringLiteral("warning")), tr("The limit is reached"));
    } else {
      Panels[i]->ClearPicture();
    }
  }
  menus_->ShowState(status.facts);
}

void Main::ShowCaption() {
  setWindowTitle(ShownCaption(CaptionText(AppTitle(), engine_.document.CurrentPlaylist)));
}

void Main::RefreshRecentMenu() {
  const Collection captions = RecentCaptions(engine_.document.RecentFiles, engine_.settings);
  menus_->Submenu("MFileRec").setEnabled(!captions.empty());
  for (std::size_t i = 0; i < MFileRecent.size(); ++i) {
    const bool used = i < captions.size();
    MFileRecent[i]->setText(used ? ShownInMenu(captions[i]) : QString());
    MFileRecent[i]->setVisible(used);
  }
}

void Main::ApplyQUBLETSettings() {
  Toolbar1->ShowLayout(LayoutFromText(engine_.session.Kept(kToolbarLayout)));
  Toolbar1->SetLook(engine_.settings.Flat, engine_.settings.ThreeD);
  for (QAction* menu : MainMenu->actions()) menu->setVisible(engine_.settings.Visible);
  ShowBars();
  addToolBar(engine_.settings.Align == 1 ? Qt::TopToolBarArea : Qt::BottomToolBarArea, Toolbar1);
  ApplyListLook(engine_.settings, *ListView1);
  // A record that has the window's own place moves nothing, even where it can't hold how far out the window stands.
  if (copied_place_ != PlaceIn(engine_.settings)) ApplyPlace(engine_.settings, normal_place_);
}

void Main::ShowBars() {
  Toolbar1->setVisible(engine_.settings.TA);
  StatusBar1->setVisible(engine_.settings.SA);
  (*menus_)["MViewToolbar"].setChecked(engine_.settings.TA);
  (*menus_)["MViewStatusBar"].setChecked(engine_.settings.SA);
  Relayout();
}

// The bars are laid out by the toolkit; the list keeps a little room below the menus where no toolbar stands.
void Main::Relayout() {
  const bool below_toolbar = engine_.settings.TA && engine_.settings.Align == 1;
  ClientLayout->setContentsMargins(0, below_toolbar ? 0 : kRoomBelowMenus, 0, 0);
}

void Main::CopyState(AppSettings& settings) {
  CopyWindowState(StateOf(*this, normal_place_, *ListView1, *Toolbar1, *StatusBar1, settings), settings);
  copied_place_ = PlaceIn(settings);
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
