// window_pictures FOLDER [--dark] [--alone]: writes pictures of the window in its states as PNG files into FOLDER.
//
// With --alone each other window is taken by itself, without the main one behind it, as the help shows it.
// The list is of made-up music on temporary drives; nothing of this user's is read. QT_SCALE_FACTOR gives the scale.

#include <QDir>
#include <QPainter>
#include <QStyleFactory>
#include <QTimer>
#include <cstdio>

#include "app/SplashFrm.h"
#include "app/ToolbarForm.h"
#include "app/appearance.h"
#include "autocreate_pictures.h"
#include "bookmarks_pictures.h"
#include "desk/Status.h"
#include "disc_pictures.h"
#include "editor_pictures.h"
#include "help_pictures.h"
#include "options_pictures.h"
#include "purge_pictures.h"
#include "rename_pictures.h"
#include "report_pictures.h"
#include "search_pictures.h"
#include "shutdown_pictures.h"
#include "support/main_window.h"
#include "support/mpeg_frames.h"
#include "tips_pictures.h"

namespace qublet {
namespace {

struct Track {
  const char* name;
  std::uint8_t rate_byte;  // third byte of the frame header: bit rate, 44100 Hz
  std::uint32_t kilobits;
  std::uint32_t seconds;
};

constexpr int kGathering = 400;  // milliseconds: the properties show the figures a moment after they come up

constexpr std::uint8_t k128 = 0x90, k192 = 0xB0, k320 = 0xE0;

constexpr std::array<Track, 15> kTracks{{
    {"Harbour Lights/Night Ferry/01 - Slack Water.mp3", k192, 192, 315},
    {"Harbour Lights/Night Ferry/02 - Lantern Street.mp3", k192, 192, 221},
    {"Harbour Lights/Night Ferry/03 - Tidewrack.mp3", k192, 192, 351},
    {"Harbour Lights/Night Ferry/04 - The Pilot's Daughter.mp3", k192, 192, 170},
    {"Harbour Lights/Night Ferry/05 - Fathoms.mp3", k192, 192, 187},
    {"Ines Valcárcel/Cartas de Otoño/01 - Café del Puerto.mp3", k320, 320, 198},
    {"Ines Valcárcel/Cartas de Otoño/02 - Niña Luna.mp3", k320, 320, 337},
    {"Ines Valcárcel/Cartas de Otoño/03 - Sin Prisa.mp3", k320, 320, 179},
    {"Old Mill Quartet/Live at the Granary/Blue Heron (take 2).mp3", k128, 128, 408},
    {"Old Mill Quartet/Live at the Granary/Millrace.mp3", k128, 128, 258},
    {"Old Mill Quartet/Live at the Granary/Sunday Bread.mp3", k128, 128, 169},
    {"Old Mill Quartet/Live at the Granary/Weathervane.mp3", k128, 128, 244},
    {"Spoken/Lecture 1 - Springs.mp3", k128, 128, 3610},
    {"Spoken/Lecture 2 - Rivers.mp3", k128, 128, 4101},
    {"Spoken/Lecture 3 - Estuaries.mp3", k128, 128, 3954},
}};

std::string Text(const Bytes& bytes) {
  return {bytes.begin(), bytes.end()};
}

// z: leads to nothing, so that a search of all drives meets nothing of this machine.
std::unique_ptr<FileSystem> OpenClosedDrives() {
  const std::filesystem::path links = qEnvironmentVariable("QUBLET_DOSDEVICES").toStdString();
  const std::filesystem::path nothing = links.parent_path() / "z";
  std::filesystem::create_directory(nothing);
  std::filesystem::create_directory_symlink(nothing, links / "z:");
  return OpenFileSystem();
}

class Pictures {
 public:
  Pictures(const QDir& folder, bool alone) : folder_(folder), alone_(alone) {
    window_.Start();
    window_.settings->TA = window_.settings->SA = true;
    window_.main->resize(alone ? 680 : 1000, alone ? 400 : 480);
    std::string lines;
    for (const Track& track : kTracks) {
      const Bytes head{0xFF, 0xFB, track.rate_byte, 0x64};
      const std::string name = std::string("Music/") + track.name;
      window_.drives.WriteSparse(name, Text(Frames(4, head, track.kilobits * 144'000 / 44'100)),
                                 std::uintmax_t{track.seconds} * track.kilobits * 125);
      lines += name + "\n";
    }
    window_.drives.Write("Evening.m3u8", lines + "Music/Old Mill Quartet/Live at the Granary/Lost Verse.mp3\n");
    Open();
    for (int column = 0; column < 4; ++column) window_.List().resizeColumnToContents(column);
    for (const int row : {2, 6}) window_.Rows().SetIcon(row, RowIcon::kBlue);
    window_.Rows().SetIcon(9, RowIcon::kGreen);
    window_.Rows().SetIcon(11, RowIcon::kRed);
    window_.main->activateWindow();
    window_.List().setFocus();
  }

  void TakeAll() {
    SelectRows({});
    Take("none-selected");
    SelectRows({3});
    Take("one-selected");
    SelectRows({16});
    Take("missing-selected");
    SelectRows({6, 7, 8, 12});
    Take("several-selected");
    TakeMenus();
    TakeToolbarForm();
    TakeProperties();
    TakeLongWork();
    TakeSplash();
    window_.settings->PLTCC = window_.settings->PLTTC = window_.settings->PLTSC = true;
    window_.settings->PLTTP = window_.settings->PLTSP = 60;
    window_.Run("MEditSelAll");
    Take("all-selected-with-warnings");
    Restart([](SettingsStore& store) { store.SaveSetting("QUBLET2021", "ToolB", "Align", "1"); });
    Take("toolbar-at-the-top");
    TakeSchemes();
    const TakePicture take = [this](const std::string& name, QWidget* window) { Take(name.c_str(), window); };
    TakeEditorPictures(window_, take);
    TakeRenamePictures(window_, take);
    TakeSearchPictures(window_, take);
    TakePurgePictures(window_, take);
    TakeDiscPictures(window_, take);
    TakeAutoCreatePictures(window_, take);
    TakeReportPictures(window_, take);
    TakeOptionsPictures(window_, take);
    TakeBookmarksPictures(window_, take);
    TakeShutdownPictures(window_, take);
    TakeTipsPictures(window_, take);
    TakeHelpPictures(window_, take);
  }

  bool Failed() const { return failed_; }

 private:
  void SelectRows(std::initializer_list<int> rows) {
    window_.Run("MEditSelNone");
    for (const int row : rows) {
      const QModelIndex index = window_.List().model()->index(row - 1, 0);
      window_.List().selectionModel()->setCurrentIndex(index,
                                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  void Open() {
    window_.dialogs.open_names = {"c:\\Evening.m3u8"};
    window_.Run("MFileOpen");
  }
  void Restart(const std::function<void(SettingsStore&)>& change) {
    window_.Run("MFileExit");
    change(window_.store);
    window_.Restart();
    Open();
    window_.main->resize(1000, 480);
  }

  void TakeMenus() {
    for (const char* name : {"MFile", "MEdit", "MView", "MTools", "MHelp"}) {
      auto* menu = window_.main->findChild<QMenu*>(QString::fromUtf8(name));
      const QRect place = window_.main->menuBar()->actionGeometry(menu->menuAction());
      menu->popup(window_.main->menuBar()->mapToGlobal(place.bottomLeft()));
      Take((QStringLiteral("menu-") + QString::fromUtf8(name).mid(1).toLower()).toUtf8().constData(), menu);
      menu->close();
    }
    auto* tools = window_.main->findChild<QMenu*>(QStringLiteral("Toolbar1 Menu"));
    const QRect button = window_.main->findChild<Toolbar*>()->geometry();
    tools->popup(window_.main->mapToGlobal(button.topLeft() + QPoint(360, -tools->sizeHint().height())));
    Take("tools-drop-down", tools);
    tools->close();
  }

  // The list in some of the looks that users choose, with rows selected and one missing, and empty.
  void TakeSchemes() {
    struct Look {
      const char* name;
      std::int32_t background, text;
    };
    SelectRows({6, 7, 16});
    for (const Look& look : {Look{"default", -0x7FFFFFFB, -0x7FFFFFF8}, Look{"blue-studio", 0x800000, 0xFF0000},
                             Look{"pastel", 0xFFE8E8, 0}, Look{"clear", 0x974B00, 0xFFCF6A}}) {
      Wear(look.background, look.text);
      Take((std::string("scheme-") + look.name).c_str());
    }
    Wear(21306, 57284);
    window_.Run("MFileNew");
    Take("empty");
  }
  void Wear(std::int32_t background, std::int32_t text) {
    window_.settings->BC = background;
    window_.settings->FC = text;
    const int width = window_.List().columnWidth(kFileName);
    ApplyListLook(*window_.settings, window_.List());
    window_.List().setColumnWidth(kFileName, width);
  }

  void TakeToolbarForm() {
    ToolbarForm form({1, 2, 3, 4, 5, 6, 4, 11, 12}, window_.main);
    form.move(window_.main->mapToGlobal(QPoint(220, 40)));
    form.show();
    Take("toolbar-form", &form);
  }

  void TakeLongWork() {
    window_.feedback.ShowActivity("c:\\Music\\Old Mill Quartet\\Live at the Granary");
    Status status(window_.main);
    status.Begin("Get File Info...", 12345);
    status.Move(4711);
    Take("long-work", &status);
    window_.feedback.ShowActivity("");
  }

  void TakeSplash() {
    SplashFrm splash([](QWidget&) {});
    splash.show();
    QCoreApplication::processEvents();
    Save("splash", splash.grab());
  }

  void TakeProperties() {
    QTimer::singleShot(0, window_.main, [this] {
      QWidget* form = QApplication::activeModalWidget();
      QTest::qWait(kGathering);
      Take("playlist-properties", form);
      form->close();
    });
    window_.Run("MViewDetails");
  }

  // The window, and what has popped up over it.
  void Take(const char* name, QWidget* over = nullptr) {
    QCoreApplication::processEvents();
    QPixmap picture = over != nullptr && alone_ ? over->grab() : window_.main->grab();
    if (over != nullptr && !alone_) {
      const QPoint place = window_.main->mapFromGlobal(over->mapToGlobal(QPoint()));
      const QPixmap popup = over->grab();
      const QRect whole = QRect(QPoint(), window_.main->size()) | QRect(place, over->size());
      QPixmap both(whole.size() * picture.devicePixelRatio());
      both.setDevicePixelRatio(picture.devicePixelRatio());
      both.fill(Qt::transparent);
      QPainter painter(&both);
      painter.drawPixmap(-whole.topLeft(), picture);
      painter.drawPixmap(place - whole.topLeft(), popup);
      painter.setPen(over->palette().color(QPalette::Mid));
      painter.drawRect(QRect(place - whole.topLeft(), over->size()).adjusted(0, 0, -1, -1));
      painter.end();
      picture = both;
    }
    Save(name, picture);
  }
  void Save(const char* name, const QPixmap& picture) {
    if (picture.save(folder_.filePath(QString::fromUtf8(name) + QStringLiteral(".png")))) return;
    std::fprintf(stderr, "can't write %s\n", name);
    failed_ = true;
  }

  QDir folder_;
  bool alone_;
  MainWindow window_{OpenClosedDrives};
  bool failed_ = false;
};

QPalette DarkPalette() {
  QPalette dark(QColor(0x35, 0x37, 0x3a), QColor(0x2b, 0x2d, 0x30));
  dark.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x22));
  dark.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::PlaceholderText, Qt::gray);
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  return dark;
}

}  // namespace
}  // namespace qublet

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const QStringList words = QApplication::arguments();
  if (words.size() < 2) return 2;
  if (words.contains(QStringLiteral("--dark"))) QApplication::setPalette(qublet::DarkPalette());
  const QDir folder(QDir(words[1]).absolutePath());
  if (!QDir().mkpath(folder.path())) return 1;
  qublet::Pictures pictures(folder, words.contains(QStringLiteral("--alone")));
  pictures.TakeAll();
  return pictures.Failed() ? 1 : 0;
}
