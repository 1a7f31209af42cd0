#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// The sizes of discs that are offered, by their row.
struct DiscSize {
  const char* text;
  std::int32_t mebibytes;  // 0 for one that holds nothing, whatever its text says
};
inline constexpr std::array<DiscSize, 16> kDiscSizes = {{{"100Mb", 100},
                                                         {"200Mb", 200},
                                                         {"400Mb", 400},
                                                         {"600Mb", 600},
                                                         {"640Mb", 640},
                                                         {"650Mb", 650},
                                                         {"680Mb", 680},
                                                         {"700Mb", 700},
                                                         {"800Mb", 800},
                                                         {"1Gb", 1024},
                                                         {"2Gb", 2048},
                                                         {"4Gb", 4096},
                                                         {"8Gb", 8192},
                                                         {"16Gb", 16384},
                                                         {"18Gb", 18432},
                                                         {"24Gb", 0}}};
inline constexpr int kUsualDiscSize = 6;

// Bytes. Throws Failure for a row that isn't there and for a size that 32 bits don't hold: those from "2Gb" on.
std::int32_t CapacityBytes(int row);

// Whether what lies in a folder fits on a disc.
struct CompilationCheck {
  bool fits = false;
  std::string refusal;  // for the user; "" when it fits, and when there is no answer for this size
};

// Puts every file below `folder` into `files`. A mebibyte of the disc stays free. There is no answer for 2 GiB or
// more, nor when a length can't be taken.
CompilationCheck CheckCompilation(const FileSystem& system, Feedback& feedback, const std::string& folder,
                                  int size_row, const std::string& thousands_separator, Collection& files);

}  // namespace qublet
