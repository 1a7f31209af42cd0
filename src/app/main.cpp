#include <QCommandLineParser>
#include <QFileInfo>
#include <QPixmap>
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "app/SplashFrm.h"
#include "app/program.h"
#include "app/session_end.h"
#include "engine/command_line.h"
#include "engine/system.h"
#include "platform/end_requests.h"
#include "platform/program.h"
#include "platform/qt/key_names.h"
#include "platform/qt/last_input.h"
#include "platform/qt/patient_application.h"
#include "platform/qt/pictures.h"
#include "platform/qt/qt_dialogs.h"
#include "playlist/paths/folder_walk.h"
#include "settings/application.h"
#include "settings/kept_values.h"

namespace qublet {
namespace {

QStringList AudioPatterns() {
  QStringList patterns;
  for (const Collection& filters : {PlaylistFilters(), FileFilters()})
    for (const std::string& filter : filters) patterns << QString::fromStdString(filter);
  return patterns;
}

// The program on this machine.
struct House {
  House(const System& system, const Session::Places& places)
      : dialogs(nullptr, *system.files, QString::fromStdString(AppTitle()), AudioPatterns()),
        program(system.With(dialogs, feedback), feedback, places) {
    dialogs.SetOwner(&program.main);
    QObject::connect(&program.main, &Main::ended, qApp, [this] { End(); });
  }

  // All is stored. A command that still runs may take long to come back, so it isn't waited for.
  void End() const {
    if (feedback.Busy()) EndAtOnce(EXIT_SUCCESS);
    QCoreApplication::exit(EXIT_SUCCESS);
  }

  QtDialogs dialogs;
  WindowFeedback feedback;
  Program program;
};

// Renders the window with the given paths loaded into a picture, and ends. Nothing of this user's is touched or
// shown.
int TakeScreenshot(const System& system, const QString& picture, const std::string& command_line) {
  House house(system, {AppKey(), "", ""});
  // No tip comes up over it.
  house.program.engine.session.Keep(kShowTips, "0");
  Main& main = house.program.main;
  main.Load(command_line, nullptr);
  main.resize(1180, 560);
  main.show();
  QCoreApplication::processEvents();
  if (main.grab().save(picture, "PNG")) return 0;
  std::fprintf(stderr, "QUBLET20: can't write %s\n", qPrintable(picture));
  return 1;
}

int Start(const System& system, PatientApplication& application, const std::string& command_line) {
  std::unique_ptr<House> house;
  std::unique_ptr<SessionEnd> session_end;
  SplashFrm splash([&](QWidget& window) {
    house->program.main.Load(command_line, &window);
    house->program.main.show();
  });
  // The splash window stands for a while by design; the main window is made meanwhile.
  splash.Begin();
  house = std::make_unique<House>(system, system.FindPlacesOfWindow());
  session_end = std::make_unique<SessionEnd>(house->program.main);
  application.WhenMemoryWants([&] { house->program.TellOfWantOfMemory(); });
  return application.exec();
}

std::vector<std::string> ToStrings(const QStringList& texts) {
  std::vector<std::string> strings;
  for (const QString& text : texts) strings.push_back(text.toStdString());
  return strings;
}

// A word that begins with "-" and names a file that is there is that file, unless it is an option of ours.
QStringList WithFilesTold(QStringList words) {
  static const QStringList kOptions{QStringLiteral("-h"), QStringLiteral("--help"), QStringLiteral("--screenshot")};
  for (QString& word : words) {
    if (word.startsWith(u'-') && !kOptions.contains(word) && QFileInfo::exists(word)) word.prepend(u"./"_qs);
  }
  return words;
}

int Run(PatientApplication& application) {
  QCommandLineParser parser;
  parser.addPositionalArgument(QStringLiteral("paths"), QStringLiteral("Files, folders and playlists to list."));
  const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                      QStringLiteral("Render the window into a PNG file and end."),
                                      QStringLiteral("FILE"));
  parser.addOption(screenshot);
  parser.addHelpOption();
  parser.process(WithFilesTold(QCoreApplication::arguments()));

  // A playlist changes the current folder when it is read.
  const QString picture = QFileInfo(parser.value(screenshot)).absoluteFilePath();

  LastInput last_input;
  const bool pictured = parser.isSet(screenshot);
  const System system(pictured ? System::Traces::kLeavesNothing : System::Traces::kThisUsers,
                      [&last_input] { return last_input.StartupId(); });
  const std::string words = CommandLineText(*system.files, ToStrings(parser.positionalArguments()));
  if (pictured) return TakeScreenshot(system, picture, words);
  return Start(system, application, TypedCommandLine().value_or(words));
}

}  // namespace
}  // namespace qublet

int main(int argc, char** argv) {
  qublet::LoadNothingForeign();
  qublet::PatientApplication application(argc, argv);
  application.setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(qublet::Picture(QStringLiteral("program")));
  QGuiApplication::setDesktopFileName(QStringLiteral("QUBLET20"));
  qublet::WindowsKeyNames key_names;
  if (QGuiApplication::platformName() == u"windows") QCoreApplication::installTranslator(&key_names);
  std::setlocale(LC_ALL, "");
  return qublet::Run(application);
}
