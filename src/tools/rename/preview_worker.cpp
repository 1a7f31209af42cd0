#include "tools/rename/preview_worker.h"

#include <utility>

namespace qublet {
namespace {

constexpr std::size_t kMostQuickRows = 2000;

bool NeverStopped() {
  return false;
}

std::vector<PreviewRow> WorkOut(const FileSystem& files, const PreviewRequest& request, const TitleReader& title,
                                const Stopped& stopped) {
  Numbering numbering(files, request.paths.size(), request.ResetPerFolder);
  std::vector<PreviewRow> rows = PlanNames(RenameRules(request.config), request.paths, numbering, title, stopped);
  WorkOutFates(files, rows, stopped);
  return rows;
}

}  // namespace

bool IsQuick(const PreviewRequest& request) {
  const bool asks_folders = request.config.Increment && request.ResetPerFolder;
  return request.paths.size() <= kMostQuickRows && !request.config.RenID3 && !asks_folders;
}

std::vector<PreviewRow> QuickNames(const FileSystem& files, const PreviewRequest& request) {
  Numbering numbering(files, request.paths.size(), request.ResetPerFolder);
  return PlanNames(
      RenameRules(request.config), request.paths, numbering, [](const std::string&) { return ""; }, NeverStopped);
}

std::vector<PreviewRow> WorkOutPreview(const FileSystem& files, const PreviewRequest& request) {
  return WorkOut(
      files, request, [&files](const std::string& path) { return TagTitle(files, path); }, NeverStopped);
}

PreviewWorker::PreviewWorker(const FileSystem& files, Done done)
    : files_(files), done_(std::move(done)), thread_([this] { Work(); }) {}

PreviewWorker::~PreviewWorker() {
  {
    const std::scoped_lock lock(mutex_);
    ends_ = true;
    ++number_;
  }
  changed_.notify_all();
  thread_.join();
}

int PreviewWorker::Start(PreviewRequest request) {
  const std::scoped_lock lock(mutex_);
  next_ = std::move(request);
  const int number = ++number_;
  changed_.notify_all();
  return number;
}

void PreviewWorker::Stop() {
  std::unique_lock lock(mutex_);
  ++number_;
  next_.reset();
  changed_.wait(lock, [this] { return !busy_; });
}

void PreviewWorker::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ends_ || next_; });
    if (ends_) return;
    const PreviewRequest request = std::move(*next_);
    next_.reset();
    const int number = number_;
    busy_ = true;
    lock.unlock();
    const Stopped stopped = [this, number] { return number_ != number; };
    std::vector<PreviewRow> rows;
    if (forget_.exchange(false)) titles_.clear();
    ResumeNext([&] {
      rows = WorkOut(
          files_, request, [this](const std::string& path) { return TitleOf(path); }, stopped);
    });
    if (!stopped()) done_(number, std::move(rows));
    lock.lock();
    busy_ = false;
    changed_.notify_all();
  }
}

std::string PreviewWorker::TitleOf(const std::string& path) {
  const auto known = titles_.find(path);
  return known != titles_.end() ? known->second : titles_.emplace(path, TagTitle(files_, path)).first->second;
}

}  // namespace qublet
