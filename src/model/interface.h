// The base of every root interface of the object model.
#pragma once

namespace Korvel::CANTORIS::PLX {

// Objects of the model have identity: the host knows them by their address.
class Interface {
public:
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

protected:
    Interface() = default;
    ~Interface() = default;
};

} // namespace Korvel::CANTORIS::PLX
