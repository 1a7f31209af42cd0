#pragma once

#include <map>
#include <string>

#include "platform/failure.h"
#include "platform/startup_entry.h"

namespace qublet {

// Startup entries in memory.
class FakeStartupEntries : public StartupEntries {
 public:
  std::string FileToOpen(const std::string& path) const override { return wants_twins ? path + '8' : path; }
  void Set(const std::string& name, const std::string& path) override {
    if (refuses) throw Failure("no rights");
    paths[name] = path;
  }
  void Remove(const std::string& name) override {
    if (refuses) throw Failure("no rights");
    paths.erase(name);
  }

  std::map<std::string, std::string> paths;
  bool refuses = false;
  bool wants_twins = false;
};

}  // namespace qublet
