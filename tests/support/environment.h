#pragma once

#include <stdlib.h>

#include <string>

#ifdef _WIN32
// As elsewhere: seen by this process and those that it starts.
inline int setenv(const char* name, const char* value, int /*replace*/) {
  return _putenv_s(name, value);
}

inline int unsetenv(const char* name) {
  return _putenv_s(name, "");
}
#endif

namespace qublet {

// A variable of this process, for as long as this lives.
class ScopedEnvironment {
 public:
  ScopedEnvironment(const char* name, const char* value) : name_(name) {
    const char* before = getenv(name);
    had_one_ = before != nullptr;
    if (had_one_) before_ = before;
    setenv(name, value, 1);
  }
  ~ScopedEnvironment() {
    if (had_one_) {
      setenv(name_.c_str(), before_.c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
  const std::string name_;
  std::string before_;
  bool had_one_ = false;
};

}  // namespace qublet
