#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QPixmap>
#include <clocale>
#include <cstdio>

#include "app/Main.h"
#include "app/SplashFrm.h"
#include "app/command_line.h"
#include "platform/memory_settings_store.h"
#include "platform/program.h"
#include "platform/qt/pictures.h"
#include "platform/qt/qt_dialogs.h"
#include "playlist/paths/folder_walk.h"
#include "settings/application.h"

namespace qublet {
namespace {

// Everything that lives as long as the program.
struct House {
  std::unique_ptr<FileSystem> files = OpenFileSystem();
  std::unique_ptr<SettingsStore> store;
  std::unique_ptr<StartupEntries> startup;
  SystemClock clock;
  SystemRandom random;
  std::unique_ptr<Collation> collation = OpenCollation();
  std::unique_ptr<Shell> shell = OpenShell(*files);
  std::unique_ptr<Associations> associations = OpenAssociations(*files);
  std::unique_ptr<PlayerWindows> players = OpenPlayerWindows();
  Document document;
  AppSettings settings;
  std::unique_ptr<QtDialogs> dialogs;
  std::unique_ptr<Main> main;
};

Session::Places FindPlaces(const FileSystem& files) {
  Session::Places places{AppKey(), ""};
  ResumeNext([&] { places.program_folder = ProgramFolder(files); });
  return places;
}

QStringList AudioPatterns() {
  QStringList patterns;
  for (const Collection& filters : {PlaylistFilters(), FileFilters()})
    for (const std::string& filter : filters) patterns << QString::fromStdString(filter);
  return patterns;
}

void MakeMain(House& house, Session::Places places) {
  house.dialogs =
      std::make_unique<QtDialogs>(nullptr, *house.files, QString::fromStdString(AppTitle()), AudioPatterns());
  const Main::Services services{*house.files, *house.store, *house.startup,   *house.dialogs,      house.clock,
                                *house.shell, house.random, *house.collation, *house.associations, *house.players};
  house.main = std::make_unique<Main>(house.document, house.settings, services, std::move(places));
  house.dialogs->SetOwner(house.main.get());
  QObject::connect(house.main.get(), &Main::ended, qApp, [] { QCoreApplication::exit(0); });
}

// No entry is made or removed: for a run that must leave nothing behind.
class NoStartupEntries : public StartupEntries {
 public:
  void Set(const std::string&, const std::string&) override {}
  void Remove(const std::string&) override {}
};

// Renders the window with the given paths loaded into a picture, and ends. Nothing of this user's is touched or
// shown.
int TakeScreenshot(House& house, const QString& picture, const std::string& command_line) {
  house.store = std::make_unique<MemorySettingsStore>();
  house.startup = std::make_unique<NoStartupEntries>();
  MakeMain(house, {AppKey(), ""});
  house.main->Load(command_line, nullptr);
  house.main->resize(1180, 560);
  house.main->show();
  QCoreApplication::processEvents();
  if (house.main->grab().save(picture, "PNG")) return 0;
  std::fprintf(stderr, "QUBLET20: can't write %s\n", qPrintable(picture));
  return 1;
}

int Start(House& house, QApplication& application, const std::string& command_line) {
  house.store = OpenSettingsStore();
  house.startup = OpenStartupEntries(*house.files);
  SplashFrm splash([&](QWidget& window) {
    house.main->Load(command_line, &window);
    house.main->show();
  });
  // The splash window stands for a while by design; the main window is made meanwhile.
  splash.Begin();
  MakeMain(house, FindPlaces(*house.files));
  return application.exec();
}

std::vector<std::string> ToStrings(const QStringList& texts) {
  std::vector<std::string> strings;
  for (const QString& text : texts) strings.push_back(text.toStdString());
  return strings;
}

int Run(QApplication& application) {
  QCommandLineParser parser;
  parser.addPositionalArgument(QStringLiteral("paths"), QStringLiteral("Files, folders and playlists to list."));
  const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                      QStringLiteral("Render the window into a PNG file and end."),
                                      QStringLiteral("FILE"));
  parser.addOption(screenshot);
  parser.addHelpOption();
  parser.process(application);

  // A playlist changes the current folder when it is read.
  const QString picture = QFileInfo(parser.value(screenshot)).absoluteFilePath();

  House house;
  const std::string command_line = CommandLineText(*house.files, ToStrings(parser.positionalArguments()));
  if (parser.isSet(screenshot)) return TakeScreenshot(house, picture, command_line);
  return Start(house, application, command_line);
}

}  // namespace
}  // namespace qublet

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  application.setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(qublet::Picture(QStringLiteral("program")));
  QGuiApplication::setDesktopFileName(QStringLiteral("QUBLET20"));
  std::setlocale(LC_ALL, "");
  return qublet::Run(application);
}
