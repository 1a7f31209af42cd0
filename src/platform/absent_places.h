#pragma once

#include <string>

namespace qublet {

// Which of the places that files lie on aren't there at the moment: a drive that leads nowhere, a disk that isn't
// mounted, a share that doesn't answer. What has been found out about a place holds as long as this lives.
class AbsentPlaces {
 public:
  virtual ~AbsentPlaces() = default;

  // The place that a path in drive form lies on, as people call it ("e:", "/mnt/nas", "\\server\share"), if it isn't
  // there; else "". A path without a drive or a server lies on no such place. Never throws.
  virtual std::string Of(const std::string& path) = 0;
};

}  // namespace qublet
