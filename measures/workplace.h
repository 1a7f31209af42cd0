#pragma once

#include <filesystem>

namespace qublet::measures {

// A temporary folder with the files to measure on, made when first asked for and gone with the workplace.
class Workplace {
 public:
  Workplace();
  ~Workplace();
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  static constexpr int kTracks = 10'000;

  // A collection of kTracks MP3 files: 25 artists, 20 albums each, 20 tracks each.
  const std::filesystem::path& Collection();

  const std::filesystem::path& Root() const { return root_; }

 private:
  std::filesystem::path root_;
  std::filesystem::path collection_;
};

}  // namespace qublet::measures
