#include "platform/qt/worker.h"

#include <chrono>
#include <future>

#include "platform/failure.h"
#include "platform/qt/input_lock.h"

namespace qublet {
namespace {

constexpr std::chrono::milliseconds kRepaintEvery{20};

}  // namespace

Worker::Worker() {
  thread_.setMaxThreadCount(1);
}

Worker::~Worker() {
  thread_.waitForDone();
}

void Worker::Do(const Work& work) {
  std::packaged_task<void()> task(work);
  std::future<void> done = task.get_future();
  thread_.start([&task] { task(); });
  ++waiting_;
  InputLock lock;
  while (done.wait_for(kRepaintEvery) != std::future_status::ready) lock.Pump();
  --waiting_;
  if (waiting_ > 0) return done.get();
  for (const Work& answer : held_back_)
    QMetaObject::invokeMethod(
        this, [this, answer] { Answer(answer); }, Qt::QueuedConnection);
  held_back_.clear();
  done.get();
}

bool Worker::Start(const Work& work, const Work& done) {
  if (started_) return false;
  started_ = true;
  thread_.start([this, work, done] {
    ResumeNext([&work] { work(); });
    QMetaObject::invokeMethod(
        this, [this, done] { Answer(done); }, Qt::QueuedConnection);
  });
  return true;
}

// Nothing changes in the midst of a command that waits.
void Worker::Answer(const Work& done) {
  if (waiting_ > 0) {
    held_back_.push_back(done);
    return;
  }
  started_ = false;
  done();
}

}  // namespace qublet
