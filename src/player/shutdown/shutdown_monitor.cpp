#include "player/shutdown/shutdown_monitor.h"

namespace qublet {
namespace {

bool FindPlayer(Engine& engine, Background& background) {
  PlayerHandle player;
  background.Do([&] { player = engine.services.players.Find(engine.player.PlayerProgram()); });
  engine.player.PlayerWindow = player;
  return !player.empty();
}

MessageAnswer Tell(const Engine& engine, const char* text, MessageIcon icon,
                   MessageButtons buttons = MessageButtons::kOk) {
  return engine.services.dialogs.ShowMessage(text, icon, buttons);
}

}  // namespace

bool BeginShutdown(Engine& engine, Background& background) {
  if (!FindPlayer(engine, background)) {
    Tell(engine, "Could not find WinAmp running on the system.", MessageIcon::kExclamation);
    Tell(engine, "If you are running WinAMP3, you may need the WinAMP2 plugin manager installed.",
         MessageIcon::kInformation);
    return false;
  }
  const MessageAnswer answer = Tell(engine, "Windows will be shut down when WinAmp stops playing for 25 seconds.",
                                    MessageIcon::kQuestion, MessageButtons::kOkCancel);
  return answer == MessageAnswer::kOk && engine.closing.MayLeave();
}

void ShutdownMonitor::Form_Load() {
  StopTimer();
  const bool found = FindPlayer(engine_, background_);
  view = ShutdownView();
  if (found) StartTimer();
  window_.render();
}

void ShutdownMonitor::StartTimer() {
  view.tmrSHUTDOWN = true;
  watch_ = std::make_shared<bool>();
}

void ShutdownMonitor::StopTimer() {
  view.tmrSHUTDOWN = false;
  watch_.reset();
}

void ShutdownMonitor::cmdHALT_Click() {
  if (view.tmrSHUTDOWN) {
    StopTimer();
    view.cmdHALT = "&Resume>";
    view.Label2 = "Halted...";
  } else {
    StartTimer();
    view.cmdHALT = "&Pause>";
    view.Label2 = "Monitoring...";
  }
  window_.render();
}

// One that isn't found may be there all the same: where it is known by what it says of itself it has to answer for
// that.
ShutdownMonitor::Answer ShutdownMonitor::Ask(const PlayerLink& link, PlayerWindows& players,
                                             const PlayerHandle& known) {
  const PlayerWindows::Action action(players);
  const PlayerHandle found = players.Find(link.PlayerProgram());
  const std::int32_t position = players.Position(found.empty() ? known : found);
  if (found.empty()) return {position == kNoAnswer ? known : "", position};
  return {found, position};
}

void ShutdownMonitor::tmrSHUTDOWN_Timer() {
  view.ProgressBar1 = count_.SilentSeconds;
  window_.render();
  const auto answer = std::make_shared<Answer>();
  const auto ask = [answer, &engine = engine_, known = engine_.player.PlayerWindow] {
    *answer = Ask(engine.player, engine.services.players, known);
  };
  background_.Start(ask, [this, answer, watch = std::weak_ptr(watch_)] {
    if (!watch.expired()) TakeAnswer(*answer);
  });
}

void ShutdownMonitor::TakeAnswer(const Answer& answer) {
  engine_.player.PlayerWindow = answer.player;
  if (answer.player.empty()) return EndWithoutPlayer();
  const ShutdownTick tick = CountSecond(answer.position, count_);
  if (!tick.Label2.empty()) view.Label2 = tick.Label2;
  if (tick.shuts_down) return ShutDown();
  window_.render();
}

void ShutdownMonitor::EndWithoutPlayer() {
  StopTimer();
  window_.render();
  Tell(engine_, "WinAMP was detected to be no longer running on the system, the process will halt.",
       MessageIcon::kExclamation);
  window_.close();
}

// The program ends whatever the system answers.
void ShutdownMonitor::ShutDown() {
  StopTimer();
  window_.render();
  engine_.closing.StoreAnswered();
  background_.Do([&power = engine_.services.power] { power.ForceShutdown(); });
  engine_.session.EndUnsaved();
}

}  // namespace qublet
