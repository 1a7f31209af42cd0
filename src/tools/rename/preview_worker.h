#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "tools/rename/preview.h"

namespace qublet {

// What a preview is worked out from.
struct PreviewRequest {
  RenameConfig config;
  Collection paths;
  bool ResetPerFolder = true;
  bool operator==(const PreviewRequest&) const = default;
};

// Whether the new names can be worked out without the disk, and soon.
bool IsQuick(const PreviewRequest& request);
// The new names of a quick request, without their fates.
std::vector<PreviewRow> QuickNames(const FileSystem& files, const PreviewRequest& request);

// The whole preview, fates and all.
std::vector<PreviewRow> WorkOutPreview(const FileSystem& files, const PreviewRequest& request);

// Works previews out on a thread of its own. A newer request stops an older one. Titles that were read from tags are
// kept until they are forgotten.
class PreviewWorker {
 public:
  // Called on that thread with a request's number and what came of it, not when it was stopped.
  using Done = std::function<void(int number, std::vector<PreviewRow> rows)>;

  PreviewWorker(const FileSystem& files, Done done);
  ~PreviewWorker();
  PreviewWorker(const PreviewWorker&) = delete;
  PreviewWorker& operator=(const PreviewWorker&) = delete;

  // Gives the request's number. It has the thread to itself as soon as an older one has noticed that it is stopped.
  int Start(PreviewRequest request);
  // Nothing is asked of the disk any more when this comes back.
  void Stop();
  // Files may have been changed.
  void ForgetTitles() { forget_ = true; }

 private:
  void Work();
  std::string TitleOf(const std::string& path);

  const FileSystem& files_;
  const Done done_;
  std::unordered_map<std::string, std::string> titles_;  // by path; the thread's own
  std::atomic<bool> forget_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<PreviewRequest> next_;
  std::atomic<int> number_ = 0;  // of the newest request
  bool busy_ = false;
  bool ends_ = false;
  std::thread thread_;
};

}  // namespace qublet
