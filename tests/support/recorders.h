#pragma once

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "platform/feedback.h"
#include "playlist/main_view.h"

namespace qublet {

// Notes what long work shows.
class RecordingFeedback : public Feedback {
 public:
  struct Progress {
    std::string caption;
    int maximum = 0;
    std::vector<int> values;
    bool ended = false;
  };

  void BeginWait() override {
    if (waits == 0) ++commands;
    most_waits = std::max(most_waits, ++waits);
  }
  void EndWait() override { --waits; }
  int Command() const override { return commands; }
  bool Stopped() const override { return stopped; }
  void ShowActivity(const std::string& text) override {
    activities.push_back(text);
    stopped = stopped || (!stop_at.empty() && text.ends_with(stop_at));
  }
  void ShowRemark(const std::string& text) override { remarks.push_back(text); }
  void BeginProgress(const std::string& caption, int maximum) override { progress.push_back({caption, maximum, {}}); }
  void ShowProgress(int value) override {
    foreign_thread = foreign_thread || std::this_thread::get_id() != thread_;
    progress.back().values.push_back(value);
    stopped = stopped || progress.size() == stop_in_batch;
  }
  void EndProgress() override { progress.back().ended = true; }

  int waits = 0;  // begun and not ended
  int most_waits = 0;
  int commands = 0;
  std::vector<std::string> activities;
  std::vector<std::string> remarks;
  std::vector<Progress> progress;
  std::string stop_at;            // the user stops when an activity that ends so is shown
  std::size_t stop_in_batch = 0;  // or when this batch, counted from 1, shows progress
  bool stopped = false;
  bool foreign_thread = false;  // something came from a thread that isn't the window's

 private:
  const std::thread::id thread_ = std::this_thread::get_id();
};

// Notes what the window is asked to show: "click", "caption", "recent", "hide", "show".
class RecordingView : public MainView {
 public:
  void ListView1_Click() override { shown.emplace_back("click"); }
  void ShowList(bool shown_now) override { shown.emplace_back(shown_now ? "show" : "hide"); }
  void ShowCaption() override { shown.emplace_back("caption"); }
  void RefreshRecentMenu() override { shown.emplace_back("recent"); }

  std::vector<std::string> shown;
};

}  // namespace qublet
