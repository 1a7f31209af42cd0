#include "report_measures.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "floors.h"
#include "generators/report/report_engine.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

struct Writing {
  std::shared_ptr<FileSystem> files;
  Collection paths;
  std::string page;  // native
};

std::shared_ptr<Writing> WritingOf(Workplace& workplace, int count) {
  auto writing = std::make_shared<Writing>();
  writing->files = OpenFileSystem();
  for (const std::string& track : workplace.Tracks(count))
    writing->paths.push_back(writing->files->FromNative(track));
  writing->page = (workplace.Root() / "report.htm").string();
  return writing;
}

// Every column of every file.
void WriteReport(const Writing& writing) {
  ReportSettings settings;
  LoadDefaults(settings);
  settings.ColumnChecked.fill(true);
  const SystemClock clock;
  const ReportResult result = GenerateReport({*writing.files, clock, ","}, writing.files->FromNative(writing.page),
                                             writing.paths, settings, [](int, int) {});
  result.written.OrThrow();
}

// What tags and stream facts are in: the first 4 KiB and the last 128 bytes.
void ReadBothEnds(const std::string& file) {
  constexpr off_t kTail = 128;
  char buffer[4096];
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) throw std::runtime_error("can't open " + file);
  const bool read = pread(descriptor, buffer, sizeof buffer, 0) > 0 && lseek(descriptor, -kTail, SEEK_END) >= 0 &&
                    ::read(descriptor, buffer, kTail) == kTail;
  close(descriptor);
  if (!read) throw std::runtime_error("can't read " + file);
}

Contest ReportAgainstReadingAndWriting(Workplace& workplace) {
  const auto writing = WritingOf(workplace, Workplace::kTracks);
  const std::vector<std::string> tracks = workplace.Tracks(Workplace::kTracks);
  WriteReport(*writing);
  const std::string page = ReadWholeFile(writing->page);
  const auto write = [writing] { return SecondsOf([&] { WriteReport(*writing); }); };
  const auto floor = [writing, tracks, page] {
    return SecondsOf([&] {
      for (const std::string& track : tracks) ReadBothEnds(track);
      ReplaceFile(writing->page, page);
    });
  };
  return {write, floor};
}

// Kilobytes by a line of /proc/self/status.
long StatusLine(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name)) return std::stol(line.substr(name.size() + 1));
  }
  throw std::runtime_error("no " + name);
}

// By how many bytes a process grows at most while it writes a report. The list of paths is there before.
double BytesOf(const Writing& writing) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    std::ofstream("/proc/self/clear_refs") << 5;  // the peak begins anew
    const long before = StatusLine("VmRSS:");
    WriteReport(writing);
    const long grown = StatusLine("VmHWM:") - before;
    _exit(write(ends[1], &grown, sizeof grown) == sizeof grown ? 0 : 1);
  }
  close(ends[1]);
  long grown = 0;
  const bool told = read(ends[0], &grown, sizeof grown) == sizeof grown;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  if (!told) throw std::runtime_error("the report failed");
  return static_cast<double>(grown) * 1024;
}

Contest ManyAgainstFew(Workplace& workplace) {
  constexpr double kMostMore = 2.0 * 1024 * 1024;
  const auto many = WritingOf(workplace, 30'000);
  const auto few = WritingOf(workplace, 1'000);
  return {[many] { return BytesOf(*many); }, [few] { return BytesOf(*few) + kMostMore; }};
}

}  // namespace

std::vector<Measure> ReportMeasures() {
  return {{"report_10000", 1.5, ReportAgainstReadingAndWriting},
          {"report_memory_30000", 1, ManyAgainstFew, Unit::kBytes}};
}

}  // namespace qublet::measures
