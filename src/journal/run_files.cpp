#include "journal/run_files.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "media/id3/bytes.h"
#include "platform/program.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::size_t kLongestHeader = 256;
constexpr std::size_t kDigits = 8;

}  // namespace

std::string RunFolder(const FileSystem& files, const RunKind& kind) {
  const std::string folder = OwnFolderOfUser(files) + "\\" + std::string(kind.folder);
  if (!files.IdentityOf(folder)) files.OwnFiles().CreateFolder(folder);
  return folder + "\\";
}

std::string RunFileName(int number, bool undone) {
  char name[32];
  std::snprintf(name, sizeof name, "%08d.%s", number, undone ? "undone" : "run");
  return name;
}

std::vector<RunFile> RunFiles(const FileSystem& files, const std::string& folder) {
  std::vector<RunFile> runs;
  for (const FolderEntry& entry : files.ReadFolder(folder)) {
    int number = 0;
    const std::string digits = entry.name.substr(0, kDigits);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool undone = entry.name.ends_with("undone");
    if (error != std::errc() || entry.name != RunFileName(number, undone)) continue;
    runs.push_back({number, undone, folder + entry.name});
  }
  std::ranges::sort(runs, {}, &RunFile::number);
  return runs;
}

RunFile FindRun(const FileSystem& files, const std::string& folder, int number) {
  for (RunFile& run : RunFiles(files, folder)) {
    if (run.number == number) return run;
  }
  throw Failure("no such run: " + std::to_string(number));
}

std::string RunHeader(const RunKind& kind, const RunHead& head) {
  return std::string(kind.title) + "\n" + head.time + "\n" + head.origin + "\n";
}

RunHead ReadRunHead(const RunKind& kind, InputFile& file) {
  Bytes start(kLongestHeader);
  start.resize(file.ReadAt(0, start));
  const std::vector<std::string> lines = Split(AsText(start), '\n');
  if (lines.size() < 4 || lines[0] != kind.title) throw Failure("no " + std::string(kind.title));
  return {lines[1], lines[2]};
}

std::string RunTime(const LocalTime& now) {
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour,
                now.minute, now.second);
  return text;
}

std::unique_ptr<HeldFile> HoldRun(const FileSystem& files, const std::string& path) {
  std::unique_ptr<HeldFile> lock;
  const Outcome asked = Attempt([&] { lock = HoldFile(files, path + ".lock"); });
  if (asked && !lock) throw Failure("another program is at work on this run");
  return lock;
}

// The number is free when the file can be made: another program may begin a run at the same time.
NewRun BeginRun(const FileSystem& files, const RunKind& kind, const std::string& folder,
                const std::vector<RunFile>& present, const RunHead& head) {
  constexpr int kTries = 100;
  NewRun run;
  const int first = present.empty() ? 1 : present.back().number + 1;
  for (int number = first; !run.file; ++number) {
    run.path = folder + RunFileName(number, false);
    const Outcome made = Attempt([&] { run.file = files.CreatePrivate(run.path); });
    if (number == first + kTries) made.OrThrow();
  }
  const std::string header = RunHeader(kind, head);
  const Outcome written = Attempt([&] {
    run.lock = HoldRun(files, run.path);
    run.file->WriteAt(0, AsBytes(header));
  });
  if (!written) {
    run.file.reset();
    ResumeNext([&] { files.DeleteFile(run.path); });
    written.OrThrow();
  }
  run.size = static_cast<std::int64_t>(header.size());
  return run;
}

}  // namespace qublet
