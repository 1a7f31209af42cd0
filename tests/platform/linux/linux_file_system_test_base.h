#pragma once

#include <sys/stat.h>
#include <sys/xattr.h>

#include <filesystem>

#include "support/file_system_test_base.h"

namespace qublet {

class LinuxFileSystemTest : public FileSystemTestBase {
 protected:
  void Link(const std::filesystem::path& target, const std::string& name) const {
    std::filesystem::create_symlink(target, drives_.C() / name);
  }
  struct stat StatusOf(const std::string& name) const {
    struct stat status {};
    EXPECT_EQ(stat((drives_.C() / name).c_str(), &status), 0);
    return status;
  }
  mode_t ModeOf(const std::string& name) const { return StatusOf(name).st_mode & 07777; }
  // Whether the file system of temporary files can do it.
  bool KeepsExtendedAttributes() const { return setxattr(drives_.C().c_str(), "user.probe", "1", 1, 0) == 0; }
  void SetMode(const std::string& name, mode_t mode) const {
    ASSERT_EQ(chmod((drives_.C() / name).c_str(), mode), 0);
  }
  std::string AttributeOf(const std::string& name, const char* attribute) const {
    char value[256];
    const ssize_t size = getxattr((drives_.C() / name).c_str(), attribute, value, sizeof value);
    return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
  }
  void SetAttributeOf(const std::string& name, const char* attribute, const std::string& value) const {
    ASSERT_EQ(setxattr((drives_.C() / name).c_str(), attribute, value.data(), value.size(), 0), 0);
  }
};

}  // namespace qublet
