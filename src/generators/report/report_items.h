#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "generators/report/report_columns.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// What is to be read of each file.
struct ReportNeeds {
  bool media = false;
  bool id3v1 = false;
  bool id3v2 = false;
  bool link = false;
};

// Where folders and links begin.
struct ReportBase {
  bool relative = false;
  std::string folder;  // without "\" at the end
};

// What one file has to say. The length in seconds isn't here when nothing gives one: it is then that of the file
// before.
struct ReportItem {
  bool found = false;
  ReportCells cells;  // all but the time
  std::string link;
  std::optional<std::int32_t> size;  // bytes
  std::optional<std::int32_t> seconds;
  bool shows_time = false;
};

// Never throws: a step that fails leaves what it was to fill.
ReportItem ReadReportItem(const FileSystem& files, const std::string& path, const ReportNeeds& needs,
                          const ReportBase& base, const std::string& thousands_separator);

// Reads files ahead by a thread for each processor, a few hundred at most, and gives them in their order.
class ReportItems {
 public:
  // What is named here outlives this.
  ReportItems(const FileSystem& files, const Collection& paths, const ReportNeeds& needs, const ReportBase& base,
              const std::string& thousands_separator);
  ~ReportItems();
  ReportItems(const ReportItems&) = delete;
  ReportItems& operator=(const ReportItems&) = delete;

  // To be called once for each path.
  ReportItem Next();

 private:
  // What a thread reads at once.
  using Part = std::vector<ReportItem>;

  void Work();
  Part ReadPart(std::size_t number) const;
  Part NextPart();
  std::size_t PartCount() const;

  const FileSystem& files_;
  const Collection& paths_;
  const ReportNeeds needs_;
  const ReportBase base_;
  const std::string thousands_separator_;

  Part part_;             // the one that is being given
  std::size_t next_ = 0;  // item of it

  std::mutex mutex_;  // of what stands below
  std::condition_variable changed_;
  std::deque<std::optional<Part>> ahead_;  // from the next one on
  std::size_t given_ = 0;                  // parts
  std::size_t taken_ = 0;
  bool ended_ = false;
  std::vector<std::jthread> threads_;  // the last member: they end before what they use
};

}  // namespace qublet
