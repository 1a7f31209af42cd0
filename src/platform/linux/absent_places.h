#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/absent_places.h"
#include "platform/file_system.h"

namespace qublet {

// What /etc/fstab names and /proc/self/mountinfo doesn't show isn't there, nor is a drive that no link leads to.
class UnmountedPlaces : public AbsentPlaces {
 public:
  // The texts of the two files.
  UnmountedPlaces(const FileSystem& files, std::string_view fstab, std::string_view mountinfo);

  std::string Of(const std::string& path) override;

 private:
  std::string PlaceOfFolder(const std::string& native) const;

  const FileSystem& files_;
  std::vector<std::string> unmounted_;  // longest first
  std::string last_folder_;             // neighbours mostly lie in one folder
  std::string last_place_;
};

// From the files of this system.
std::unique_ptr<AbsentPlaces> FindUnmountedPlaces(const FileSystem& files);

}  // namespace qublet
