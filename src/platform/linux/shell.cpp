#include "platform/shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/linux/file_manager.h"
#include "platform/linux/handlers.h"
#include "platform/linux/user_folders.h"

extern char** environ;

namespace qublet {
namespace {

// Where a program begins: in the folder that it wants, else at home. The current folder is that of a playlist, and a
// program would load what lies there.
std::string StartFolder(const std::string& wanted = "") {
  const char* home = std::getenv("HOME");
  std::error_code error;
  for (const std::string& folder : {wanted, std::string(home != nullptr ? home : "")}) {
    if (folder.starts_with('/') && std::filesystem::is_directory(folder, error)) return folder;
  }
  return "/";
}

// What is to be started: a file, found once, and the words that it is given, its own name first.
struct Command {
  std::string program;  // absolute
  std::vector<std::string> words;
  std::string folder = StartFolder();
};

// A program of $PATH. Nothing when it can't be run.
std::optional<Command> CommandOf(std::vector<std::string> words) {
  std::string program = FindProgram(words.front());
  if (program.empty()) return std::nullopt;
  return Command{std::move(program), std::move(words)};
}

// How a program starts: in a session of its own, with nothing to read and nobody to talk to, all signals as usual.
class StartConditions {
 public:
  StartConditions() {
    posix_spawnattr_init(&attributes_);
    posix_spawn_file_actions_init(&actions_);
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
      posix_spawn_file_actions_addopen(&actions_, number, "/dev/null", O_RDWR, 0);
  }
  ~StartConditions() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }
  StartConditions(const StartConditions&) = delete;
  StartConditions& operator=(const StartConditions&) = delete;

  // Number of the new process, 0 when it can't be started.
  pid_t Start(const Command& command, const std::vector<std::string>& environment) {
    std::vector<char*> words = Pointers(command.words);
    std::vector<char*> variables = Pointers(environment);
    posix_spawn_file_actions_addchdir_np(&actions_, command.folder.c_str());
    pid_t process = 0;
    const int error =
        posix_spawn(&process, command.program.c_str(), &actions_, &attributes_, words.data(), variables.data());
    return error == 0 ? process : 0;
  }

 private:
  static std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
  }

  posix_spawnattr_t attributes_{};
  posix_spawn_file_actions_t actions_{};
};

using Words = std::vector<std::vector<std::string>>;

// Of the desktops in their own order; the folder follows the last word.
const Words kSearches{{"catfish", "--path="}, {"kfind", ""}, {"mate-search-tool", "--path="}};
const Words kVolumeControls{{"pavucontrol"},
                            {"pavucontrol-qt"},
                            {"gnome-control-center", "sound"},
                            {"systemsettings", "kcm_pulseaudio"},
                            {"cinnamon-settings", "sound"},
                            {"mate-volume-control"},
                            {"qasmixer"}};

// What shows a program that has no window; the program and its words follow.
const Words kTerminals{{"xdg-terminal-exec"},
                       {"x-terminal-emulator", "-e"},
                       {"gnome-terminal", "--"},
                       {"konsole", "-e"},
                       {"xfce4-terminal", "-x"},
                       {"mate-terminal", "-x"},
                       {"kitty"},
                       {"foot"},
                       {"alacritty", "-e"},
                       {"xterm", "-e"}};

// What every program for Windows begins with.
constexpr std::array<std::uint8_t, 2> kWindowsProgram{'M', 'Z'};

// The environment of this process, with `startup_id` in place of what this process itself was started by.
std::vector<std::string> EnvironmentFor(const std::string& startup_id) {
  std::vector<std::string> environment;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view text = *variable;
    if (!text.starts_with("DESKTOP_STARTUP_ID=") && !text.starts_with("XDG_ACTIVATION_TOKEN="))
      environment.emplace_back(text);
  }
  if (!startup_id.empty()) environment.push_back("DESKTOP_STARTUP_ID=" + startup_id);
  return environment;
}

// The first whose program can be run.
std::optional<Command> FirstInstalled(const Words& commands) {
  for (const std::vector<std::string>& words : commands) {
    if (auto command = CommandOf(words)) return command;
  }
  return std::nullopt;
}

class DesktopShell : public Shell {
 public:
  DesktopShell(const FileSystem& files, StartupIds startup_ids)
      : files_(files), startup_ids_(std::move(startup_ids)) {}

  bool Open(const std::string& path) override {
    bool started = false;
    ResumeNext([&] { started = Start(CommandFor(path, Absolute(path))); });
    return started;
  }

  bool OpenAudio(const std::string& path) override { return IsAudio(path) && Open(path); }

  bool CanStart(const std::string& program) const override {
    return Guarded([&] {
      const std::string native = NativeProgram(program);
      struct stat status {};
      const bool runs =
          stat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(native.c_str(), X_OK) == 0;
      if (!runs || IsForWindows(program)) throw Failure("no program of this system");
    });
  }

  void Start(const std::string& program, const std::string& argument) override {
    if (!CanStart(program)) {
      Open(program);
      return;
    }
    ResumeNext([&] {
      const std::string native = NativeProgram(program);
      Start(Command{native, {native, argument}});
    });
  }

  void OpenAddress(const std::string& address) override {
    ResumeNext([&] {
      if (IsWebAddress(address)) Start(CommandOf({"xdg-open", address}));
    });
  }

  void Explore(const std::string& folder) override { Open(folder.empty() ? files_.CurrentFolder() : folder); }

  void Find(const std::string& folder) override {
    ResumeNext([&] {
      std::optional<Command> command = FirstInstalled(kSearches);
      if (!command) return Explore(folder);
      command->words.back() += Absolute(folder);
      Start(command);
    });
  }

  void ShowFileProperties(const std::string& path) override {
    ResumeNext([&] {
      if (!ShowItemProperties(bus_, files_.ToNative(path), StartupId()))
        Explore(path.substr(0, path.rfind('\\') + 1));
    });
  }

  bool OpenVolumeControl() override {
    return Guarded([&] {
      if (!Start(FirstInstalled(kVolumeControls))) throw Failure("no volume control");
    });
  }

  std::string HandOverFolder() override { return files_.FromNative(TemporaryFolder()); }

 private:
  // What is started begins in another folder than this process.
  std::string Absolute(const std::string& path) const {
    return std::filesystem::absolute(files_.ToNative(path)).string();
  }
  std::string NativeProgram(const std::string& program) const { return Absolute(program); }

  // On a disk of Windows every file may be executed. One that can't be read is taken for a program.
  bool IsForWindows(const std::string& program) const {
    std::array<std::uint8_t, 2> head{};
    ResumeNext([&] { files_.OpenForReading(program)->ReadAt(0, head); });
    return head == kWindowsProgram;
  }

  // Kinds that we know are opened by their own program or not at all: the system's opener would have a text editor
  // show a playlist.
  static std::optional<Command> CommandFor(const std::string& path, const std::string& native) {
    const std::vector<std::string> types = TypesOf(path);
    if (types.empty()) return CommandOf({"xdg-open", native});
    const std::optional<DesktopEntry> handler = FindHandler(types);
    if (!handler) return std::nullopt;
    Command command{handler->program, handler->CommandLine(native), StartFolder(handler->folder)};
    if (!handler->in_terminal) return command;
    std::optional<Command> terminal = FirstInstalled(kTerminals);
    if (!terminal) return CommandOf({"xdg-open", native});
    command.words.front() = command.program;
    terminal->words.insert(terminal->words.end(), command.words.begin(), command.words.end());
    terminal->folder = command.folder;
    return terminal;
  }

  std::string StartupId() const { return startup_ids_ ? startup_ids_() : ""; }

  // False when there is nothing that could be started.
  bool Start(const std::optional<Command>& command) {
    if (!command) return false;
    const std::vector<std::string> environment = EnvironmentFor(StartupId());
    const pid_t process = StartConditions().Start(*command, environment);
    if (process == 0) return false;
    // Nobody looks at how it ends, but the system keeps a process until someone has waited for it.
    ResumeNext([&] { std::thread([process] { waitpid(process, nullptr, 0); }).detach(); });
    return true;
  }

  const FileSystem& files_;
  StartupIds startup_ids_;
  MessageBus bus_;
};

}  // namespace

std::unique_ptr<Shell> OpenShell(const FileSystem& files, StartupIds startup_ids) {
  return std::make_unique<DesktopShell>(files, std::move(startup_ids));
}

}  // namespace qublet
