#pragma once

#include <filesystem>
#include <string>
#include <vector>

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

  // The files of the collection, from the first again when all have been named, `count` in all.
  std::vector<std::string> Tracks(int count);

  static constexpr int kTagged = 1'000;
  // kTagged MP3 files that begin with a tag and have room in it, in one folder.
  const std::vector<std::string>& Tagged();

  const std::filesystem::path& Root() const { return root_; }

 private:
  std::filesystem::path root_;
  std::filesystem::path collection_;
  std::vector<std::string> tagged_;
};

}  // namespace qublet::measures
