#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/temporary_drives.h"

namespace qublet {

// An environment variable that is as before at the end.
class Variable {
 public:
  Variable(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* present = getenv(name_.c_str()); present != nullptr) before_ = present;
    Set(value);
  }
  ~Variable() { before_ ? setenv(name_.c_str(), before_->c_str(), 1) : unsetenv(name_.c_str()); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

  void Set(const std::string& value) const { setenv(name_.c_str(), value.c_str(), 1); }

 private:
  std::string name_;
  std::optional<std::string> before_;
};

// Two drives, and the folders of a desktop in the same temporary folder: what this user has set and installed, what
// the system has, and the programs that can be run. There is no session bus.
class TemporaryDesktop {
 public:
  TemporaryDesktop() {
    for (const std::filesystem::path& folder :
         {Config(), Data(), SystemConfig(), SystemData(), Programs(), Runtime()})
      std::filesystem::create_directories(folder);
  }

  const TemporaryDrives& Drives() const { return drives_; }
  std::filesystem::path Config() const { return drives_.Root() / "config"; }
  std::filesystem::path Data() const { return drives_.Root() / "data"; }
  std::filesystem::path SystemConfig() const { return drives_.Root() / "etc"; }
  std::filesystem::path SystemData() const { return drives_.Root() / "share"; }
  std::filesystem::path Programs() const { return drives_.Root() / "bin"; }
  std::filesystem::path Runtime() const { return drives_.Root() / "run"; }
  void SetDesktop(const std::string& name) const { desktop_.Set(name); }

  // A program that can be found and run.
  std::filesystem::path AddProgram(const std::string& name, const std::string& script = "") const {
    TemporaryDrives::WriteAt(Programs() / name, "#!/bin/sh\n" + script);
    std::filesystem::permissions(Programs() / name, std::filesystem::perms::owner_all);
    return Programs() / name;
  }

  // An entry below "applications" in a data folder; `keys` are further lines.
  static void AddEntry(const std::filesystem::path& data, const std::string& id, const std::string& keys) {
    TemporaryDrives::WriteAt(data / "applications" / (id + ".desktop"),
                             "[Desktop Entry]\nType=Application\nName=" + id + "\n" + keys);
  }

  // A program and its entry in the system's folder.
  void Install(const std::string& id, const std::string& keys = "") const {
    AddProgram(id);
    AddEntry(SystemData(), id, "Exec=" + id + " %U\n" + keys);
  }

 private:
  TemporaryDrives drives_;
  Variable config_{"XDG_CONFIG_DIRS", (drives_.Root() / "etc").string()};
  Variable data_{"XDG_DATA_DIRS", (drives_.Root() / "share").string()};
  Variable path_{"PATH", (drives_.Root() / "bin").string()};
  Variable runtime_{"XDG_RUNTIME_DIR", (drives_.Root() / "run").string()};
  Variable desktop_{"XDG_CURRENT_DESKTOP", ""};
  Variable bus_{"DBUS_SESSION_BUS_ADDRESS", ""};
};

}  // namespace qublet
