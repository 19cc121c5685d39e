#include "process/lock.h"

#include <windows.h>

namespace Korvel::CANTORIS::PLX::process {

namespace {

SRWLOCK mutex = SRWLOCK_INIT;

} // namespace

Locked::Locked()
{
    AcquireSRWLockExclusive(&mutex);
}

Locked::~Locked()
{
    ReleaseSRWLockExclusive(&mutex);
}

} // namespace Korvel::CANTORIS::PLX::process
