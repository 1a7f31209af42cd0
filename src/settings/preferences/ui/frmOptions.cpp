#include "settings/preferences/ui/frmOptions.h"

#include <QScreen>
#include <QScrollBar>

namespace qublet {
namespace {

struct PageNode {
  const char* text;
  const char* key;
  const char* parent;  // its key; "" for none
};

// In the order of the frames.
constexpr std::array kNodes{PageNode{"General", "General", ""},
                            PageNode{"Appearance", "Appearance", ""},
                            PageNode{"Playlist", "PLV", "Appearance"},
                            PageNode{"Elements", "GUE", "Appearance"},
                            PageNode{"Misc", "Misc", ""},
                            PageNode{"Interface", "INO", "Misc"},
                            PageNode{"Startup", "SUO", "Misc"},
                            PageNode{"Prompting", "Prompting", ""}};

constexpr double kShareOfTheScreen = 0.9;  // at most, so that there is room for a frame
constexpr int kKey = Qt::UserRole;
constexpr int kFrame = Qt::UserRole + 1;

}  // namespace

frmOptions::frmOptions(Engine& engine, QWidget* parent) : QDialog(parent), preferences_(engine) {
  setupUi(this);
  pages_ = {GeneralFrame, PlaylistFrame, ElementsFrame, InterfaceFrame, StartupFrame, PromptingFrame};
  PlaylistFrame->Attach(preferences_);
  ElementsFrame->Attach(preferences_);
  InterfaceFrame->Attach(preferences_);
  BuildTree();
  LoadOptionControls(preferences_.Open());
  connect(OptionsTree, &QTreeWidget::currentItemChanged, this,
          [this](QTreeWidgetItem* node) { ShowOptionsPage(node->data(0, kFrame).toInt()); });
  connect(GeneralFrame, &GeneralOptionsPage::defaultsWanted, this, &frmOptions::cmdDefault_Click);
  connect(GeneralFrame, &GeneralOptionsPage::flushWanted, this, [this] { preferences_.cmdFlushReg_Click(); });
  connect(cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
  connect(cmdApply, &QPushButton::clicked, this, &frmOptions::StoreOptionControls);
  connect(CmdClose, &QPushButton::clicked, this, &frmOptions::reject);
  OptionsTree->setCurrentItem(OptionsTree->topLevelItem(0));
  resize(sizeHint().boundedTo(screen()->availableSize() * kShareOfTheScreen));
}

void frmOptions::BuildTree() {
  QHash<QString, QTreeWidgetItem*> nodes;
  for (std::size_t frame = 0; frame < kNodes.size(); ++frame) {
    const PageNode& page = kNodes[frame];
    auto* const node = new QTreeWidgetItem({QString::fromUtf8(page.text)});
    node->setData(0, kKey, QString::fromUtf8(page.key));
    node->setData(0, kFrame, static_cast<int>(frame));
    QTreeWidgetItem* const parent = nodes.value(QString::fromUtf8(page.parent), OptionsTree->invisibleRootItem());
    parent->addChild(node);
    nodes.insert(QString::fromUtf8(page.key), node);
  }
  OptionsTree->expandAll();
  const int beside = OptionsTree->verticalScrollBar()->sizeHint().width();
  OptionsTree->resizeColumnToContents(0);
  OptionsTree->setFixedWidth(OptionsTree->columnWidth(0) + 2 * OptionsTree->frameWidth() + beside);
}

void frmOptions::ShowOptionsPage(int page) {
  frameOption->setCurrentIndex(page);
  PageArea->verticalScrollBar()->setValue(0);
  PageCaption->setText(frameOption->currentWidget()->windowTitle());
}

void frmOptions::LoadOptionControls(const AppSettings& settings) {
  for (OptionsPage* page : pages_) page->Load(settings);
}

void frmOptions::StoreOptionControls() {
  preferences_.StoreOptionControls([this](AppSettings& settings) {
    for (const OptionsPage* page : pages_) page->Store(settings);
  });
}

void frmOptions::cmdOK_Click() {
  StoreOptionControls();
  accept();
}

void frmOptions::cmdDefault_Click() {
  if (const auto defaults = preferences_.cmdDefault_Click()) LoadOptionControls(*defaults);
}

}  // namespace qublet
