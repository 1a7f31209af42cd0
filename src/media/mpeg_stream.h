#pragma once

#include <optional>
#include <string>

#include "platform/file_system.h"

namespace qublet {

// What an MPEG audio file (MPEG 1, 2 or 2.5, layers I to III) says of its stream, in the words that the program
// shows.
struct StreamFacts {
  double StreamLength = 0;    // seconds
  std::string StreamLayer;    // "I", "II", "III"
  std::string StreamVersion;  // "1.0", "2.0", "2.5"
  // Kilobits of 1000 bit/s: "128" for a constant rate, "102 Kbit (VBR)" for the average of a varying one.
  std::string StreamBitrate;
  double StreamSamplerate = 0;  // Hz
  bool StreamCrc = false;
  bool StreamCopyrighted = false;
  bool StreamOriginal = false;
  std::string StreamEmphasis;  // "None", "50/15", "CCITT", "Resvd"
  std::string StreamMode;      // "Stereo", "Joint Stereo", "Dual Channel", "Mono"
};

// Reads the facts from the first frame and the count of frames in it, if there is one. A file without that is taken
// for one of constant rate: its length is that of its audio bytes at the rate of the first frame. Where an encoder
// says that the rate varies but not how many frames there are, it is the average of the first 64 KiB. One read of 4
// KiB does for a file with a count, one more for each long tag in front, and one at the end for a file without a
// count. Nothing when there is no frame, or only free format, within the first MiB behind the tags. Throws Failure on
// an input error.
std::optional<StreamFacts> FindStreamInfo(InputFile& file);
// The same for which no frame is a Failure as well.
StreamFacts ReadStreamInfo(InputFile& file);

}  // namespace qublet
