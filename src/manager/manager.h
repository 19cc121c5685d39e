// The interface of the root of one clip catalogue.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class ClipBase;
class MutableClip;
class SystemClip;
class UserClip;

class Manager : private Interface {
public:
    virtual void destroy() = 0;
    virtual const Char* appID() const noexcept = 0;
    virtual const Char* systemClipDirPath() const noexcept = 0;
    virtual std::uint32_t readAllClipFiles() = 0;
    virtual std::uint32_t readUserClipFiles() = 0;
    virtual std::uint64_t numSystemClips() const noexcept = 0;
    virtual SystemClip* systemClip(std::uint64_t index) const noexcept = 0;
    virtual bool hasSystemClip(const ClipBase* element) const noexcept = 0;
    virtual const Char* userClipDirPath() const noexcept = 0;
    virtual std::uint64_t numUserClips() const noexcept = 0;
    virtual UserClip* userClip(std::uint64_t index) const noexcept = 0;
    virtual bool hasUserClip(const ClipBase* element) const noexcept = 0;
    virtual MutableClip* createMutableClip() = 0;
    virtual bool hasMutableClip(const ClipBase* element) const noexcept = 0;
    virtual ~Manager() = default;
};

} // namespace Korvel::CANTORIS::PLX
