#include <cstdlib>

namespace {

// Before anything of a test runs, and for every program that it starts: the services of the machine, its login
// manager above all, are out of reach. A test that wants one stands in for it on a bus of its own (private_bus.h).
[[maybe_unused]] const int kOutOfReach = setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/system-bus", 1);

}  // namespace
