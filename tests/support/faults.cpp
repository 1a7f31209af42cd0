#include "support/faults.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <fstream>

extern char** environ;

namespace qublet {
namespace {

namespace fs = std::filesystem;

constexpr int kMostRuns = 10000;

const char* NameOf(Fault fault) {
  switch (fault) {
    case Fault::kKillBefore:
      return "kill-before";
    case Fault::kKillAfter:
      return "kill-after";
    case Fault::kDiskFull:
      return "disk-full";
    case Fault::kErrorOnce:
      return "error-once";
    case Fault::kErrorFrom:
      return "error-from";
  }
  return "";
}

std::vector<std::string> EnvironmentFor(const FaultyProgram& program, Fault fault, int call, const fs::path& report) {
  std::vector<std::string> entries;
  for (char** entry = environ; *entry != nullptr; ++entry) entries.emplace_back(*entry);
  // LD_PRELOAD would split a path at its blanks, a folder to search is taken whole.
  const fs::path library = QUBLET_FAULT_LIBRARY;
  entries.push_back("LD_LIBRARY_PATH=" + library.parent_path().string());
  entries.push_back("LD_PRELOAD=" + library.filename().string());
  entries.push_back("ASAN_OPTIONS=verify_asan_link_order=0");
  entries.push_back("QUBLET_FAULT_BELOW=" + fs::canonical(program.below).string());
  entries.push_back(std::string("QUBLET_FAULT_KIND=") + NameOf(fault));
  entries.push_back("QUBLET_FAULT_CALL=" + std::to_string(call));
  entries.push_back("QUBLET_FAULT_REPORT=" + report.string());
  if (program.old_file_system) entries.push_back("QUBLET_FAULT_OLD_FILE_SYSTEM=1");
  if (program.no_locks) entries.push_back("QUBLET_FAULT_NO_LOCKS=1");
  return entries;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Gives the status of waitpid.
int RunToItsEnd(const FaultyProgram& program, std::vector<std::string> environment) {
  std::vector<std::string> arguments = program.arguments;
  arguments.insert(arguments.begin(), program.program.string());
  pid_t child = 0;
  int status = -1;
  const int error = posix_spawn(&child, program.program.c_str(), nullptr, nullptr, Pointers(arguments).data(),
                                Pointers(environment).data());
  if (error == 0) waitpid(child, &status, 0);
  return status;
}

}  // namespace

fs::path TestProgram(const std::string& name) {
  return fs::canonical("/proc/self/exe").parent_path() / name;
}

bool EndsWell(const FaultyProgram& program) {
  const int status = RunToItsEnd(program, EnvironmentFor(program, Fault::kKillBefore, 0, "/dev/null"));
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int ForEvery(Fault fault, const FaultyProgram& program, const std::function<void()>& prepare,
             const std::function<void(const FaultRun&)>& check) {
  std::string pattern = (fs::temp_directory_path() / "qublet-fault-XXXXXX").string();
  const fs::path place = mkdtemp(pattern.data());
  const fs::path report = place / "report";
  int struck = 0;
  for (int call = 1; call < kMostRuns; ++call) {
    fs::remove(report);
    prepare();
    const int status = RunToItsEnd(program, EnvironmentFor(program, fault, call, report));

    FaultRun run{fault, call, "", WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL, false};
    run.ended_well = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    std::ifstream(report) >> run.name;
    if (run.name.empty()) {
      EXPECT_TRUE(run.ended_well) << program.program << " fails without a fault, status " << status;
      break;
    }
    ++struck;
    SCOPED_TRACE(std::string(NameOf(fault)) + " at call " + std::to_string(call) + " (" + run.name + ")");
    EXPECT_TRUE(run.killed || WIFEXITED(status)) << "crashed, status " << status;
    check(run);
    if (::testing::Test::HasFailure()) break;
  }
  fs::remove_all(place);
  return struck;
}

int ForEveryFault(const FaultyProgram& program, const std::function<void()>& prepare,
                  const std::function<void(const FaultRun&)>& check) {
  int struck = 0;
  for (const Fault fault :
       {Fault::kKillBefore, Fault::kKillAfter, Fault::kDiskFull, Fault::kErrorOnce, Fault::kErrorFrom}) {
    struck += ForEvery(fault, program, prepare, check);
  }
  return struck;
}

}  // namespace qublet
