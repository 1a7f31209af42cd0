#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/shell.h"

namespace qublet {

// Opens nothing; notes what it was asked for.
class ScriptedShell : public Shell {
 public:
  std::vector<std::string> opened, addresses;
  std::string folder;  // of the hand-over
  bool refuses = false;
  bool opens = true;

  std::vector<std::string> started;  // "program <argument>"
  std::set<std::string> foreign;     // programs that can't be started
  std::vector<std::string> explored, searched, properties;
  int volume_controls = 0;
  bool has_volume_control = true;

  bool Open(const std::string& path) override {
    opened.push_back(path);
    return opens;
  }
  bool CanStart(const std::string& program) const override { return !foreign.contains(program); }
  void Start(const std::string& program, const std::string& argument) override {
    started.push_back(program + " <" + argument + ">");
  }
  void OpenAddress(const std::string& address) override { addresses.push_back(address); }
  void Explore(const std::string& path) override { explored.push_back(path); }
  void Find(const std::string& path) override { searched.push_back(path); }
  void ShowFileProperties(const std::string& path) override { properties.push_back(path); }
  bool OpenVolumeControl() override {
    ++volume_controls;
    return has_volume_control;
  }
  std::string HandOverFolder() override {
    if (refuses) throw Failure("no such folder");
    return folder;
  }
};

}  // namespace qublet
