#pragma once

namespace Korvel::CANTORIS::PLX::process {

// Holds the library's only lock for as long as it lives. The lock exists before any code runs and
// is never destroyed; a thread must not take it twice.
class Locked {
public:
    Locked();
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked();
};

} // namespace Korvel::CANTORIS::PLX::process
