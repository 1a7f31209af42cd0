#include "platform/shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/linux/file_manager.h"
#include "platform/linux/handlers.h"
#include "platform/linux/user_folders.h"

extern char** environ;

namespace qublet {
namespace {

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
  pid_t Start(const std::vector<std::string>& command, const std::vector<std::string>& environment) const {
    std::vector<char*> words = Pointers(command);
    std::vector<char*> variables = Pointers(environment);
    pid_t process = 0;
    const int error = posix_spawnp(&process, words[0], &actions_, &attributes_, words.data(), variables.data());
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

using Commands = std::vector<std::vector<std::string>>;

// Of the desktops in their own order; the folder follows the last word.
const Commands kSearches{{"catfish", "--path="}, {"kfind", ""}, {"mate-search-tool", "--path="}};
const Commands kVolumeControls{{"pavucontrol"},
                               {"pavucontrol-qt"},
                               {"gnome-control-center", "sound"},
                               {"systemsettings", "kcm_pulseaudio"},
                               {"cinnamon-settings", "sound"},
                               {"mate-volume-control"},
                               {"qasmixer"}};

// What shows a program that has no window; the program and its words follow.
const Commands kTerminals{{"xdg-terminal-exec"},
                          {"x-terminal-emulator", "-e"},
                          {"gnome-terminal", "--"},
                          {"konsole", "-e"},
                          {"xfce4-terminal", "-x"},
                          {"mate-terminal", "-x"},
                          {"kitty"},
                          {"foot"},
                          {"alacritty", "-e"},
                          {"xterm", "-e"}};

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

// The first command whose program can be run; empty when there is none.
std::vector<std::string> FirstInstalled(const Commands& commands) {
  for (const std::vector<std::string>& command : commands)
    if (!FindProgram(command.front()).empty()) return command;
  return {};
}

class DesktopShell : public Shell {
 public:
  DesktopShell(const FileSystem& files, StartupIds startup_ids)
      : files_(files), startup_ids_(std::move(startup_ids)) {}

  void Open(const std::string& path) override {
    ResumeNext([&] {
      const std::vector<std::string> command = CommandFor(path, files_.ToNative(path));
      if (!command.empty()) Start(command);
    });
  }

  void OpenAddress(const std::string& address) override {
    ResumeNext([&] {
      if (IsWebAddress(address)) Start({"xdg-open", address});
    });
  }

  void Explore(const std::string& folder) override { Open(folder.empty() ? files_.CurrentFolder() : folder); }

  void Find(const std::string& folder) override {
    ResumeNext([&] {
      std::vector<std::string> command = FirstInstalled(kSearches);
      if (command.empty()) return Explore(folder);
      command.back() += files_.ToNative(folder);
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
      const std::vector<std::string> command = FirstInstalled(kVolumeControls);
      if (command.empty()) throw Failure("no volume control");
      Start(command);
    });
  }

  std::string HandOverFolder() override { return files_.FromNative(TemporaryFolder()); }

 private:
  // Kinds that we know are opened by their own program or not at all: the system's opener would have a text editor
  // show a playlist.
  static std::vector<std::string> CommandFor(const std::string& path, const std::string& native) {
    const std::vector<std::string> types = TypesOf(path);
    if (types.empty()) return {"xdg-open", native};
    const std::optional<DesktopEntry> handler = FindHandler(types);
    if (!handler) return {};
    std::vector<std::string> command = handler->CommandLine(native);
    if (!handler->in_terminal) return command;
    const std::vector<std::string> terminal = FirstInstalled(kTerminals);
    if (terminal.empty()) return {"xdg-open", native};
    command.insert(command.begin(), terminal.begin(), terminal.end());
    return command;
  }

  std::string StartupId() const { return startup_ids_ ? startup_ids_() : ""; }

  void Start(const std::vector<std::string>& command) {
    const std::vector<std::string> environment = EnvironmentFor(StartupId());
    const pid_t process = StartConditions().Start(command, environment);
    // Nobody looks at how it ends, but the system keeps a process until someone has waited for it.
    if (process != 0) std::thread([process] { waitpid(process, nullptr, 0); }).detach();
  }

  const FileSystem& files_;
  StartupIds startup_ids_;
  SessionBus bus_;
};

}  // namespace

std::unique_ptr<Shell> OpenShell(const FileSystem& files, StartupIds startup_ids) {
  return std::make_unique<DesktopShell>(files, std::move(startup_ids));
}

}  // namespace qublet
