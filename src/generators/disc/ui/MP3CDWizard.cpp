#include "generators/disc/ui/MP3CDWizard.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include "desk/busy_window.h"
#include "generators/disc/compilation.h"
#include "generators/disc/disc_icons.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kLettersAcross = 76;
constexpr int kLinesOfLabel7 = 5;  // what is said at the end

void RenderBox(QCheckBox& box, bool ticked, bool usable) {
  box.setChecked(ticked);
  box.setEnabled(usable);
}

// A button that has the keyboard hands it on before it can't be used.
void Enable(QWidget& control, bool usable, QWidget& next) {
  if (!usable && control.hasFocus()) next.setFocus();
  control.setEnabled(usable);
}

}  // namespace

MP3CDWizard::MP3CDWizard(Engine& engine, QWidget* parent) : BarlessDialog(parent), engine_(engine), wizard_(engine) {
  setupUi(this);
  FillLists();
  ConnectSteps();
  ConnectFolders();
  ConnectExtras();
  wizard_.Load();
  ShowRecent();
  Render();
  Label7->setMinimumHeight(kLinesOfLabel7 * fontMetrics().lineSpacing());
  resize(sizeHint().expandedTo({kLettersAcross * fontMetrics().averageCharWidth(), 0}));
  BrowseAssembleLoc->setFocus();
}

void MP3CDWizard::FillLists() {
  for (const DiscSize& size : kDiscSizes) ImSize->addItem(QString::fromUtf8(size.text));
  IconChooser->addItem(QStringLiteral("Custom"));
  for (int number = 1; number <= kDiscIcons; ++number) IconChooser->addItem(QString::number(number));
  CDROMLoc->setCompleter(nullptr);
}

void MP3CDWizard::ConnectSteps() {
  connect(CmdNext, &QPushButton::clicked, this, &MP3CDWizard::CmdNext_Click);
  connect(CmdBack, &QPushButton::clicked, this, [this] {
    wizard_.CmdBack_Click();
    Render();
  });
  connect(CmdClose, &QPushButton::clicked, this, &MP3CDWizard::reject);
  connect(OpenImageLoc, &QPushButton::clicked, this, [this] { wizard_.OpenImageLoc_Click(); });
  connect(OpenFol, &QPushButton::clicked, this, [this] { wizard_.OpenFol_Click(); });
}

void MP3CDWizard::ConnectFolders() {
  connect(BrowseAssembleLoc, &QPushButton::clicked, this, [this] {
    wizard_.BrowseAssembleLoc_Click();
    Render();
  });
  connect(BrowseImageLoc, &QPushButton::clicked, this, [this] {
    wizard_.BrowseImageLoc_Click();
    Render();
  });
  connect(CDROMLoc->lineEdit(), &QLineEdit::textEdited, this, &MP3CDWizard::CDROMLoc_Edited);
  connect(CDROMLoc, &QComboBox::activated, this, [this] {
    wizard_.CDROMLoc_Change(CDROMLoc->currentText().toStdString());
    Render();
  });
  connect(ImSize, &QComboBox::currentIndexChanged, this, [this](int row) { wizard_.ImSize_Click(row); });
}

void MP3CDWizard::ConnectExtras() {
  const auto box = [this](QCheckBox* control, bool DiscExtras::*extra) {
    connect(control, &QCheckBox::clicked, this, [this, extra](bool ticked) {
      wizard_.Box_Click(extra, ticked);
      Render();
    });
  };
  box(chkCopyBrowser, &DiscExtras::chkCopyBrowser);
  box(chkCreateTable, &DiscExtras::chkCreateTable);
  box(chkCreateAutorun, &DiscExtras::chkCreateAutorun);
  box(chkAutoBigList, &DiscExtras::chkAutoBigList);
  box(chkAutoIndex, &DiscExtras::chkAutoIndex);
  box(chkAutoIcon, &DiscExtras::chkAutoIcon);
  connect(IconChooser, &QComboBox::activated, this, [this](int row) {
    wizard_.IconChooser_Click(row);
    Render();
  });
  connect(ShowSoftware, &QPushButton::clicked, this, [this] {
    wizard_.ShowSoftware_Click();
    Render();
  });
  connect(LoadReportSet, &QPushButton::clicked, this, [this] { wizard_.LoadReportSet_Click(); });
  connect(DefReportSet, &QPushButton::clicked, this, [this] { wizard_.DefReportSet_Click(); });
  connect(PrevReportSet, &QPushButton::clicked, this, &MP3CDWizard::PrevReportSet_Click);
}

void MP3CDWizard::CDROMLoc_Edited(const QString& text) {
  const std::string name = TypedFolderName(wizard_.view.CDROMLoc, text.toStdString());
  QLineEdit& line = *CDROMLoc->lineEdit();
  const QString taken = QString::fromStdString(name);
  if (taken != text) {
    const int behind = static_cast<int>(text.size()) - line.cursorPosition();
    line.setText(taken);
    line.setCursorPosition(static_cast<int>(taken.size()) - behind);
  }
  wizard_.CDROMLoc_Change(name);
  Render();
}

void MP3CDWizard::CmdNext_Click() {
  CmdNext->setFocus();
  RunLong([this](const DiscWizard::Watch& watch) { wizard_.CmdNext_Click(watch); });
  // Only another disc begins at the first frame again.
  if (wizard_.view.frame == DiscWizard::kFoldersFrame || wizard_.view.frame == DiscWizard::kFilesFrame) ShowRecent();
  if (wizard_.view.closes_next) CmdClose->setFocus();
}

void MP3CDWizard::PrevReportSet_Click() {
  RunLong([this](const DiscWizard::Watch& watch) { wizard_.PrevReportSet_Click(watch); });
}

void MP3CDWizard::RunLong(const std::function<void(const DiscWizard::Watch& watch)>& work) {
  {
    BusyWindow busy(*this);
    DiscWizard::Watch watch;
    watch.view = [&] {
      Render();
      busy.Repaint();
    };
    watch.ProgressBar2 = [&](int value) {
      ProgressBar2->setRange(0, kDiscStages);
      ProgressBar2->setValue(value);
    };
    watch.ProgressBar1 = [&](int value, int maximum) {
      ProgressBar1->setRange(0, std::max(maximum, 1));
      ProgressBar1->setValue(value);
      if (value == 0 || busy.IsDue()) busy.Repaint();
    };
    work(watch);
  }
  Render();
}

void MP3CDWizard::ShowRecent() {
  const QSignalBlocker quiet(CDROMLoc);
  CDROMLoc->clear();
  for (const std::string& name : wizard_.view.choices.recent) CDROMLoc->addItem(QString::fromStdString(name));
  CDROMLoc->setCurrentIndex(-1);
  CDROMLoc->setEditText(QString::fromStdString(wizard_.view.CDROMLoc));
}

void MP3CDWizard::Render() {
  const DiscView& view = wizard_.view;
  FrameStep->setCurrentIndex(view.frame);
  RenderFolders();
  RenderExtras();
  RenderFinish();
  Enable(*CmdBack, view.back, *CmdNext);
  Enable(*CmdNext, view.next, *CmdClose);
}

void MP3CDWizard::RenderFolders() {
  const DiscView& view = wizard_.view;
  const bool root = !view.choices.AssembleLoc.empty();
  AssembleLoc->setText(QString::fromStdString(view.choices.AssembleLoc));
  CDROMLoc->setEnabled(root);
  BrowseImageLoc->setEnabled(root);
  const QString name = QString::fromStdString(view.CDROMLoc);
  if (CDROMLoc->currentText() != name) CDROMLoc->setEditText(name);
  ImSize->setCurrentIndex(view.choices.ImSize);
}

void MP3CDWizard::RenderExtras() {
  const DiscView& view = wizard_.view;
  const DiscExtras& extras = view.choices.extras;
  RenderBox(*chkCopyBrowser, extras.chkCopyBrowser, view.browser_usable);
  Enable(*ShowSoftware, view.browser_usable, *CmdNext);
  RenderBox(*chkCreateTable, extras.chkCreateTable, true);
  for (QPushButton* button : {LoadReportSet, DefReportSet, PrevReportSet}) button->setEnabled(extras.chkCreateTable);
  RenderBox(*chkCreateAutorun, extras.chkCreateAutorun, true);
  RenderBox(*chkAutoBigList, extras.chkAutoBigList, view.UsesAutorun());
  RenderBox(*chkAutoIndex, extras.chkAutoIndex, view.UsesIndex());
  RenderBox(*chkAutoIcon, extras.chkAutoIcon, view.UsesAutorun());
  IconChooser->setCurrentIndex(view.choices.IconChooser);
  IconChooser->setEnabled(view.UsesIcon());
  CDIcon->setEnabled(view.UsesIcon());
  CDIcon->setPixmap(IconPixmap());
}

void MP3CDWizard::RenderFinish() {
  const DiscView& view = wizard_.view;
  lblReport->Report(ShownText(view.lblReport));
  Label7->setText(QString::fromStdString(view.Label7));
  DragToBurn->setEnabled(view.drag);
  if (!view.drag) {
    DragToBurn->Clear();
  } else if (DragToBurn->count() == 0) {
    std::vector<std::string> native;
    for (const std::string& path : wizard_.BurnList())
      ResumeNext([&] { native.push_back(engine_.services.files.ToNative(path)); });
    DragToBurn->ShowDisc(ShownText(view.CDROMLoc), IconPixmap(), native);
  }
}

QPixmap MP3CDWizard::IconPixmap() const {
  const IconPicture& icon = wizard_.view.CDIcon;
  if (icon.pixels.empty()) return {};
  const auto* const bytes = reinterpret_cast<const uchar*>(icon.pixels.data());
  return QPixmap::fromImage(QImage(bytes, icon.width, icon.height, QImage::Format_ARGB32).copy());
}

}  // namespace qublet
