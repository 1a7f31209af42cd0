#pragma once

#include "app/Main.h"
#include "desk/commands.h"
#include "desk/desk.h"
#include "desk/window_feedback.h"
#include "engine/engine.h"
#include "platform/qt/worker.h"

namespace qublet {

// The window program over given services: engine, main window and every tool, made and bound.
class Program {
 public:
  // `feedback` is the one that `services` name.
  Program(const Services& services, WindowFeedback& feedback, const Session::Places& places);

  // Of what the user asked for and couldn't be done.
  void TellOfWantOfMemory();

  Engine engine;
  Commands commands;
  Main main;
  Worker worker;
  Desk desk;
};

}  // namespace qublet
