#include "guard_measures.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "workplace.h"

namespace qublet::measures {
namespace {

constexpr double kGoal = 1.1;
constexpr std::size_t kChanged = 100;  // files

using Words = std::vector<std::string>;

std::string Guarded() {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename("qublet").string();
}

std::string Unguarded() {
  const char* const program = std::getenv("QUBLET_UNGUARDED");
  if (program == nullptr) throw std::runtime_error("$QUBLET_UNGUARDED names no program to compare with");
  return program;
}

double SecondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Runs a program with words behind its name to its end; what it prints goes nowhere. Gives the seconds that
// processors worked on it: guards cost these, and a busy machine hides them in any other time.
double RunProgram(const std::string& program, Words words) {
  words.insert(words.begin(), program);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failed = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  rusage used{};
  if (failed != 0 || wait4(child, &status, 0, &used) != child || status != 0)
    throw std::runtime_error(program + " doesn't do it");
  return SecondsOf(used.ru_utime) + SecondsOf(used.ru_stime);
}

// The same command of both. Its words may be others in each run.
template <typename WordsOf>
Contest OfBoth(WordsOf words_of) {
  const auto runs = std::make_shared<int>(0);
  const auto run = [words_of, runs](const std::string& program) {
    return [=] { return RunProgram(program, words_of(++*runs)); };
  };
  return {run(Guarded()), run(Unguarded())};
}

Contest List(Workplace& workplace) {
  const std::string folder = workplace.Collection().string();
  return OfBoth([folder](int) { return Words{"list", folder}; });
}

Contest Save(Workplace& workplace) {
  const std::string folder = workplace.Collection().string();
  const std::string target = (workplace.Root() / "guarded.m3u").string();
  return OfBoth([=](int) { return Words{"save", "--replace", target, folder}; });
}

Contest Tags(Workplace& workplace) {
  Words files = workplace.Tagged();
  files.resize(kChanged);
  const std::string data = (workplace.Root() / "guarded_data").string();
  setenv("XDG_DATA_HOME", data.c_str(), 1);  // not this user's journal
  return OfBoth([files](int run) {
    Words words{"tag", "--set", "TIT2=A title, changed: " + std::to_string(100 + run)};
    words.insert(words.end(), files.begin(), files.end());
    return words;
  });
}

}  // namespace

std::vector<Measure> GuardMeasures() {
  return {{"guarded_list", kGoal, List}, {"guarded_save", kGoal, Save}, {"guarded_tags", kGoal, Tags}};
}

}  // namespace qublet::measures
