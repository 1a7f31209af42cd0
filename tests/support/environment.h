#pragma once

#include <stdlib.h>

#ifdef _WIN32
// As elsewhere: seen by this process and those that it starts.
inline int setenv(const char* name, const char* value, int /*replace*/) {
  return _putenv_s(name, value);
}

inline int unsetenv(const char* name) {
  return _putenv_s(name, "");
}
#endif
