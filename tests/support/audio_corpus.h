#pragma once

#include <filesystem>
#include <string>

namespace qublet {

// Native place of a file that tests/support/audio_corpus.py makes ("vbr_v2.mp3"). For reading only: a test that
// changes one takes a copy.
inline std::filesystem::path CorpusFile(const std::string& name) {
  return std::filesystem::path(QUBLET_AUDIO_CORPUS) / name;
}

}  // namespace qublet
