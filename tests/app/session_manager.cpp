// A session manager that a test leads: it stands between the desktop and one program, by the protocol that programs
// on X11 know (XSMP).
//
// Prints what SESSION_MANAGER has to be, and then what the program does: "joined", "asks" (it wants to show a dialog,
// and may), "refuses" or "agrees" (the dialog is over), "saved", "gone". Takes orders, a line each: "end" (the
// session ends, dialogs are allowed), "end quietly" (they aren't), "die", "stay" (the end is called off).

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

SmsConn client = nullptr;

void Say(const char* what) {
  std::cout << what << std::endl;
}

// Many answers of the client's need no reply but the freeing of what it gave.
Status Register(SmsConn conn, SmPointer, char* previous_id) {
  std::free(previous_id);
  client = conn;
  char* id = SmsGenerateClientID(conn);
  SmsRegisterClientReply(conn, id);
  std::free(id);
  SmsSaveYourself(conn, SmSaveLocal, False, SmInteractStyleNone, False);
  return 1;
}

void InteractRequest(SmsConn conn, SmPointer, int) {
  Say("asks");
  SmsInteract(conn);
}

void InteractDone(SmsConn conn, SmPointer, Bool cancelled) {
  Say(cancelled ? "refuses" : "agrees");
  if (cancelled) SmsShutdownCancelled(conn);
}

void SaveYourselfRequest(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}

void SaveYourselfPhase2Request(SmsConn conn, SmPointer) {
  SmsSaveYourselfPhase2(conn);
}

void SaveYourselfDone(SmsConn conn, SmPointer, Bool) {
  static bool joined = false;
  Say(joined ? "saved" : "joined");
  if (!joined) SmsSaveComplete(conn);
  joined = true;
}

void CloseConnection(SmsConn conn, SmPointer, int count, char** reasons) {
  SmFreeReasons(count, reasons);
  IceConn ice = SmsGetIceConnection(conn);
  SmsCleanUp(conn);
  IceSetShutdownNegotiation(ice, False);
  IceCloseConnection(ice);
  Say("gone");
  std::exit(0);
}

void SetProperties(SmsConn, SmPointer, int count, SmProp** properties) {
  for (int i = 0; i < count; ++i) SmFreeProperty(properties[i]);
  std::free(properties);
}

void DeleteProperties(SmsConn, SmPointer, int count, char** names) {
  for (int i = 0; i < count; ++i) std::free(names[i]);
  std::free(names);
}

void GetProperties(SmsConn conn, SmPointer) {
  SmsReturnProperties(conn, 0, nullptr);
}

Status NewClient(SmsConn, SmPointer, unsigned long* mask, SmsCallbacks* callbacks, char**) {
  *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
          SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
          SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
          SmsGetPropertiesProcMask;
  callbacks->register_client.callback = Register;
  callbacks->interact_request.callback = InteractRequest;
  callbacks->interact_done.callback = InteractDone;
  callbacks->save_yourself_request.callback = SaveYourselfRequest;
  callbacks->save_yourself_phase2_request.callback = SaveYourselfPhase2Request;
  callbacks->save_yourself_done.callback = SaveYourselfDone;
  callbacks->close_connection.callback = CloseConnection;
  callbacks->set_properties.callback = SetProperties;
  callbacks->delete_properties.callback = DeleteProperties;
  callbacks->get_properties.callback = GetProperties;
  return 1;
}

Bool LetAllIn(char*) {
  return True;
}

void Obey(const std::string& order) {
  if (order == "end") SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleAny, False);
  if (order == "end quietly") SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleNone, False);
  if (order == "die") SmsDie(client);
  if (order == "stay") SmsShutdownCancelled(client);
}

}  // namespace

int main() {
  char error[256] = "";
  int count = 0;
  IceListenObj* listeners = nullptr;
  if (!SmsInitialize("test", "1", NewClient, nullptr, LetAllIn, sizeof error, error) ||
      !IceListenForConnections(&count, &listeners, sizeof error, error)) {
    std::cerr << error << '\n';
    return 1;
  }
  for (int i = 0; i < count; ++i) IceSetHostBasedAuthProc(listeners[i], LetAllIn);
  char* address = IceComposeNetworkIdList(count, listeners);
  Say(address);

  std::vector<pollfd> watched{{STDIN_FILENO, POLLIN, 0}};
  for (int i = 0; i < count; ++i) watched.push_back({IceGetListenConnectionNumber(listeners[i]), POLLIN, 0});
  std::vector<IceConn> connections;
  for (;;) {
    if (poll(watched.data(), watched.size(), -1) < 0) return 1;
    if (watched[0].revents != 0) {
      std::string order;
      if (!std::getline(std::cin, order)) return 0;
      Obey(order);
    }
    for (std::size_t i = 1; i < watched.size(); ++i) {
      if (watched[i].revents == 0) continue;
      if (i > static_cast<std::size_t>(count)) {
        const IceConn from = connections[i - 1 - static_cast<std::size_t>(count)];
        if (IceProcessMessages(from, nullptr, nullptr) == IceProcessMessagesIOError) {
          Say("gone");
          return 0;
        }
        continue;
      }
      IceAcceptStatus status = IceAcceptSuccess;
      const IceConn accepted = IceAcceptConnection(listeners[i - 1], &status);
      if (accepted == nullptr) continue;
      while (IceConnectionStatus(accepted) == IceConnectPending) IceProcessMessages(accepted, nullptr, nullptr);
      connections.push_back(accepted);
      watched.push_back({IceConnectionNumber(accepted), POLLIN, 0});
      break;
    }
  }
}
