#include "platform/windows/Com.h"

// The tests' thread has COM, as a host's user-interface thread has.
namespace {
const qv::ComScope com;
}
