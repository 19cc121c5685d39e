#include "process/lock.h"

#include <mutex>

namespace Korvel::CANTORIS::PLX::process {

namespace {

constinit std::mutex mutex;

} // namespace

Locked::Locked()
{
    mutex.lock();
}

Locked::~Locked()
{
    mutex.unlock();
}

} // namespace Korvel::CANTORIS::PLX::process
