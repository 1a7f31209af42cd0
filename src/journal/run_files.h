#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/held_file.h"

namespace qublet {

// Runs of changes to files, kept so that they can be undone: a file a run, "00000012.run", later "00000012.undone",
// in a folder of this user. It begins with three lines: what it is, the time, who made the run.

struct RunKind {
  std::string_view title;   // the first line
  std::string_view folder;  // its name
};

struct RunFile {
  int number = 0;
  bool undone = false;
  std::string path;
};

// The folder of the runs, made when missing, with a trailing "\". Throws Failure.
std::string RunFolder(const FileSystem& files, const RunKind& kind);
// In ascending order of their numbers. Throws Failure.
std::vector<RunFile> RunFiles(const FileSystem& files, const std::string& folder);
// Throws Failure when there is no such run.
RunFile FindRun(const FileSystem& files, const std::string& folder, int number);
std::string RunFileName(int number, bool undone);

// The lines that a run's file begins with.
struct RunHead {
  std::string time;  // "2026-11-22 03:19:43"
  std::string origin;
};
std::string RunHeader(const RunKind& kind, const RunHead& head);
// Throws Failure, also for a file that is no such run.
RunHead ReadRunHead(const RunKind& kind, InputFile& file);
std::string RunTime(const LocalTime& now);

// Holds a run against every other program, while it goes on and while it is undone. Throws Failure when another one
// has it in hand; null where files can't be held.
std::unique_ptr<HeldFile> HoldRun(const FileSystem& files, const std::string& path);

// A run's file that has just been made, with its lines.
struct NewRun {
  std::string path;
  std::unique_ptr<HeldFile> lock;
  std::unique_ptr<InPlaceFile> file;
  std::int64_t size = 0;
};
// Takes the first number behind those of `present`. Throws Failure.
NewRun BeginRun(const FileSystem& files, const RunKind& kind, const std::string& folder,
                const std::vector<RunFile>& present, const RunHead& head);

}  // namespace qublet
