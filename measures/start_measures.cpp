#include "start_measures.h"

#include <QCoreApplication>
#include <QProcess>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "full_list.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

constexpr double kNanosecond = 1e-9;
constexpr double kMillisecond = 1e-3;
constexpr double kMostBytesPerRow = 1024;

std::filesystem::path ProgramsFolder() {
  return QCoreApplication::applicationDirPath().toStdString();
}

struct Picture {
  double seconds = 0;  // from the start of the process, without the pause of the splash window
  double bytes = 0;
};

// A program with a folder and a home of its own; the folder can be written, so that it is the program's own.
class Program {
 public:
  Program(const std::string& name, const std::filesystem::path& home) : home_(home), executable_(home / name) {
    std::filesystem::create_directories(home);
    std::filesystem::copy_file(ProgramsFolder() / name, executable_, std::filesystem::copy_options::update_existing);
  }

  Picture Start() const {
    QProcess process;
    process.setProcessEnvironment(Environment());
    const auto start = std::chrono::steady_clock::now().time_since_epoch();
    process.start(QString::fromStdString(executable_.string()), QStringList());
    process.waitForFinished();
    const QList<QByteArray> words = process.readAllStandardOutput().simplified().split(' ');
    if (words.size() != 3) throw std::runtime_error(executable_.string() + " shows no window");
    const double painted = words[0].toDouble() - std::chrono::duration<double, std::nano>(start).count();
    return {painted * kNanosecond - words[1].toDouble() * kMillisecond, words[2].toDouble()};
  }

 private:
  QProcessEnvironment Environment() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
      environment.insert(QString::fromUtf8(name), QString::fromStdString(home_.string()));
    }
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("first_picture"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QString::fromStdString(ProgramsFolder().string()));
    return environment;
  }

  std::filesystem::path home_;
  std::filesystem::path executable_;
};

Program Ours(const Workplace& workplace) {
  return {"QUBLET20", workplace.Root() / "empty"};
}

// One whose last session ended with a full list of files that are there.
Program OursFull(Workplace& workplace) {
  const Program program{"QUBLET20", workplace.Root() / "full"};
  const std::filesystem::path last = workplace.Root() / "full" / "last.m3u";
  if (std::filesystem::exists(last)) return program;
  const auto files = OpenFileSystem();
  std::vector<std::string> tracks;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(workplace.Collection())) {
    if (entry.is_regular_file()) tracks.push_back(files->FromNative(entry.path().string()));
  }
  std::ofstream out(last, std::ios::binary);
  for (int i = 0; i < RowStore::MaxRows; ++i) out << tracks[static_cast<std::size_t>(i) % tracks.size()] << "\r\n";
  return program;
}

// The load of the last session's list by itself, without a window.
double Load(const std::filesystem::path& playlist) {
  FullList list;
  const auto files = OpenFileSystem();
  const double seconds = SecondsOf([&] { list.items.AddStuff(files->FromNative(playlist.string()), false); });
  if (list.document.ListView1.Count() != RowStore::MaxRows) throw std::runtime_error("the list isn't full");
  return seconds;
}

Contest EmptyAgainstABareWindow(Workplace& workplace) {
  const Program ours = Ours(workplace);
  const Program bare("bare_window", workplace.Root() / "bare");
  return {[ours] { return ours.Start().seconds; }, [bare] { return bare.Start().seconds; }};
}

Contest FullAgainstABareWindowAndALoad(Workplace& workplace) {
  const Program ours = OursFull(workplace);
  const Program bare("bare_window", workplace.Root() / "bare");
  const auto last = workplace.Root() / "full" / "last.m3u";
  return {[ours] { return ours.Start().seconds; }, [bare, last] { return bare.Start().seconds + Load(last); }};
}

Contest BytesAgainstTheMost(Workplace& workplace) {
  const Program empty = Ours(workplace);
  const Program full = OursFull(workplace);
  return {[empty, full] { return (full.Start().bytes - empty.Start().bytes) / RowStore::MaxRows; },
          [] { return kMostBytesPerRow; }};
}

}  // namespace

std::vector<Measure> StartMeasures() {
  return {
      {"start_empty", 1.5, EmptyAgainstABareWindow},
      {"start_32767", 1.5, FullAgainstABareWindowAndALoad},
      {"memory_per_row", 1, BytesAgainstTheMost, Unit::kBytes},
  };
}

}  // namespace qublet::measures
