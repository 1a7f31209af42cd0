#pragma once

#include <string>

namespace qublet {

// What long work shows while it runs. Routines report through it and never know a window.
class Feedback {
 public:
  virtual ~Feedback() = default;

  // Wait cursor of the window: shown from the first Begin to the last End.
  virtual void BeginWait() {}
  virtual void EndWait() {}
  // True from the first Begin to the last End; no command is taken then.
  virtual bool Busy() const { return false; }
  // How many first Begins there were: the number of the command that is at work.
  virtual int Command() const { return 0; }
  // True once the user has asked for the work to stop, until the next first Begin. Work that can be stopped asks now
  // and then, and leaves things as they were.
  virtual bool Stopped() const { return false; }

  // Text of status bar panel 4, repainted at once.
  virtual void ShowActivity(const std::string& /*text*/) {}

  // What happened by the way, shown for a while where activity stands.
  virtual void ShowRemark(const std::string& /*text*/) {}

  // The `Status` progress window: shown with a caption and a bar from 0 to `maximum`, moved, hidden again.
  virtual void BeginProgress(const std::string& /*caption*/, int /*maximum*/) {}
  virtual void ShowProgress(int /*value*/) {}
  virtual void EndProgress() {}
};

// Holds the wait cursor for as long as it lives.
class WaitCursor {
 public:
  explicit WaitCursor(Feedback& feedback) : feedback_(feedback) { feedback_.BeginWait(); }
  ~WaitCursor() { feedback_.EndWait(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Feedback& feedback_;
};

}  // namespace qublet
