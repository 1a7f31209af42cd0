#pragma once

#include <QObject>
#include <QThreadPool>
#include <vector>

#include "platform/background.h"

namespace qublet {

// A thread of its own for work that takes long. Its end waits for what is under way.
class Worker : public QObject, public Background {
  Q_OBJECT

 public:
  Worker();
  ~Worker() override;

  void Do(const Work& work) override;
  bool Start(const Work& work, const Work& done) override;

 private:
  void Answer(const Work& done);

  QThreadPool thread_;
  bool started_ = false;
  int waiting_ = 0;              // how many Do haven't come back
  std::vector<Work> held_back_;  // answers that came meanwhile
};

}  // namespace qublet
