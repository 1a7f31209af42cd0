#include "platform/clock.h"

#include "platform/windows/windows_api.h"

namespace qublet {

LocalTime SystemClock::Now() const {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

}  // namespace qublet
