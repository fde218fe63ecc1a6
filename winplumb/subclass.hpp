#pragma once
#include <cstdint>

#include "platform/platform.hpp"

namespace tarnbrook {

// How a client wants the message it is handling to reach the window's previous procedure.
enum EMsgResponse {
  emrConsume = 0,     // the previous procedure does not see it
  emrPostProcess = 1, // read for the last client: the previous procedure runs afterwards
  emrPreprocess = 2,  // read for the first client: the previous procedure runs first
};

// A client of message subclassing. The defaults do nothing: MsgResponse reads emrConsume,
// WindowProc answers 0.
class ISubclass {
public:
  virtual ~ISubclass() = default;
  // Get/set how you will respond to a message. Call CurrentMessage() to learn which
  // message you are responding to.
  virtual EMsgResponse MsgResponse() { return emrConsume; }
  virtual void SetMsgResponse(EMsgResponse /*response*/) {}
  // Raised whenever a message you have subclassed is sent.
  virtual LRESULT WindowProc(HWND /*hwnd*/, int32_t /*iMsg*/, WPARAM /*wParam*/,
                             LPARAM /*lParam*/) {
    return 0;
  }
};

// Starts delivering message `iMsg` of `hwnd` to `client`, after the clients already attached.
// Raises ObjectError 13083 (invalid window), 13084 (another process's window), 13081 (the
// procedure could not be replaced) or 13082 (the client already has this message).
void AttachMessage(ISubclass* client, HWND hwnd, int32_t iMsg);
// Stops it. Never raises; attach and detach must pair exactly (a client that is not
// attached drops the message's last client).
void DetachMessage(ISubclass* client, HWND hwnd, int32_t iMsg);

// The window procedure every subclassed window gets.
LRESULT SubclassDispatcher(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

// The message the dispatcher of this thread is handing to a client, and the window's previous
// procedure for it.
int32_t CurrentMessage();
WNDPROC CurrentPreviousProc();

} // namespace tarnbrook
