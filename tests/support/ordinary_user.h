#pragma once

#ifndef _WIN32
#include <unistd.h>
#endif

#include <filesystem>

namespace qublet {

#ifdef _WIN32
// Nobody is set apart from the rights of others there by a mode.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const std::filesystem::path& /*folder*/) {}
  bool Changed() const { return false; }
};
#else
// For as long as it lives a test run by the superuser is an ordinary user, to whom `folder` and all in it belongs:
// permissions count then. For others nothing changes.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const std::filesystem::path& folder) {
    if (geteuid() != 0) return;
    Give(folder);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) Give(entry.path());
    changed_ = setegid(kNobody) == 0 && seteuid(kNobody) == 0;
  }
  ~OrdinaryUser() {
    const bool restored = !changed_ || (seteuid(0) == 0 && setegid(0) == 0);
    if (!restored) _exit(1);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  // Whether the user was the superuser before.
  bool Changed() const { return changed_; }

 private:
  static constexpr unsigned kNobody = 65534;
  static void Give(const std::filesystem::path& place) {
    if (lchown(place.c_str(), kNobody, kNobody) != 0) throw std::runtime_error("lchown");
  }

  bool changed_ = false;
};
#endif

}  // namespace qublet
