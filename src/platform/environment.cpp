#include "platform/environment.h"

#include <chrono>
#include <thread>

#include "runtime/datetime.h"

namespace telvaro {

double Environment::now() { return telvaro::now(); }

void Environment::idle() { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }

}  // namespace telvaro
