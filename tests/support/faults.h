#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace qublet {

// Tests of what stands on the disk after a program was killed or a disk was full in the middle of its work.
//
// ForEveryFault runs a small program again and again. A library that is loaded into it (fault_library.cpp) counts
// the system calls that change something below one folder and makes the n-th of them go wrong, for n = 1, 2, ...
// until the program ends before its n-th call, and this for every kind of fault. A test reads like this:
//
//   TemporaryDrives drives;
//   const FaultyProgram program{TestProgram("file_driver"), {"replace", "c:\\list.m3u", "new"}, drives.Root()};
//   ForEveryFault(
//       program, [&] { drives.Write("list.m3u", "old"); },
//       [&](const FaultRun& run) {
//         EXPECT_EQ(drives.Read("list.m3u"), run.ended_well ? "new" : "old");
//       });
//
// In CMake: link the tests to `fault_runs`, make the program with add_executable, and let the tests depend on it and
// on `faults` (add_dependencies).

enum class Fault {
  kKillBefore,  // the program dies instead of the call
  kKillAfter,   // the program dies after the call, of a write only half has been done
  kDiskFull,    // from this call on nothing finds room; of a write half has been done
  kErrorOnce,   // this call alone fails with an input/output error
  kErrorFrom,   // this call and all after it fail so, except deletions
};

struct FaultyProgram {
  std::filesystem::path program;
  std::vector<std::string> arguments;
  // Only files below this folder are concerned.
  std::filesystem::path below;
  // The program finds no rename that never replaces, as on simple file systems.
  bool old_file_system = false;
  // The program finds that no file can be locked.
  bool no_locks = false;
};

struct FaultRun {
  Fault fault = Fault::kKillBefore;
  int call = 0;             // which call went wrong, from 1
  std::string name;         // of that call ("fsync")
  bool killed = false;      // died of the fault
  bool ended_well = false;  // gave exit code 0
};

// The place of a program of this build.
std::filesystem::path TestProgram(const std::string& name);

// Before each run `prepare` makes the first state; after each run that a fault has struck `check` looks at what is
// left. The run that ends before its fault has to end well. Gives the count of faults that struck; a test expects it
// to be as many as there is to go wrong.
int ForEveryFault(const FaultyProgram& program, const std::function<void()>& prepare,
                  const std::function<void(const FaultRun&)>& check);

// Runs the program once and without a fault; whether it gives exit code 0.
bool EndsWell(const FaultyProgram& program);

// ForEveryFault for one kind of fault.
int ForEvery(Fault fault, const FaultyProgram& program, const std::function<void()>& prepare,
             const std::function<void(const FaultRun&)>& check);

}  // namespace qublet
