#pragma once

namespace Korvel::CANTORIS::PLX::process {

// Holds the one lock of the library for as long as it lives. The lock is there before any code runs
// and never goes away; a thread must not take it twice.
class Locked {
public:
    Locked();
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked();
};

} // namespace Korvel::CANTORIS::PLX::process
