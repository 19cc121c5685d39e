// The interfaces of a note's expression objects: attack and release Dvqm, singing skill, vibrato.
#pragma once

#include <cstdint>

#include "korvel/plx/expression.h"
#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class NoteBase;

class Dvqm;
class MutableDvqm;

// A voice-quality component that is applied at the start or at the end of a note.
class DvqmBase : private Interface {
public:
    virtual bool isAttack() const noexcept = 0;
    virtual bool isMutable() const noexcept = 0;
    virtual const Char* compID() const noexcept = 0;
    virtual std::uint64_t numLevelNames() const noexcept = 0;
    virtual const Char* levelName(std::uint64_t index) const noexcept = 0;
    virtual bool isProtected() const noexcept = 0;
    virtual std::uint32_t speed() const noexcept = 0;
    virtual float topFactor() const noexcept = 0;
    virtual ~DvqmBase() = default;

    virtual Dvqm* asDvqm() noexcept { return nullptr; }
    virtual MutableDvqm* asMutableDvqm() noexcept { return nullptr; }
};

class Dvqm : public virtual DvqmBase {
public:
    virtual NoteBase* parent() const noexcept = 0;
};

class MutableDvqm : public virtual DvqmBase {
public:
    virtual NoteBase* parent() const noexcept = 0;
    virtual void setCompID(const Char* text) = 0;
    virtual bool addLevelName(const Char* text) = 0;
    virtual bool protect(bool value) noexcept = 0;
    virtual bool setSpeed(std::uint32_t value) noexcept = 0;
    virtual bool setTopFactor(float value) noexcept = 0;
};

class SingingSkill;
class MutableSingingSkill;

// A weighted ornament that spans part of a note.
class SingingSkillBase : private Interface {
public:
    virtual std::int32_t duration() const noexcept = 0;
    virtual bool isMutable() const noexcept = 0;
    virtual std::uint32_t preWeight() const noexcept = 0;
    virtual std::uint32_t postWeight() const noexcept = 0;
    virtual ~SingingSkillBase() = default;

    virtual SingingSkill* asSingingSkill() noexcept { return nullptr; }
    virtual MutableSingingSkill* asMutableSingingSkill() noexcept { return nullptr; }
};

class SingingSkill : public virtual SingingSkillBase {
public:
    virtual NoteBase* parent() const noexcept = 0;
};

class MutableSingingSkill : public virtual SingingSkillBase {
public:
    virtual NoteBase* parent() const noexcept = 0;
    virtual bool setDuration(std::int32_t value) noexcept = 0;
    virtual bool setPreWeight(std::uint32_t value) noexcept = 0;
    virtual bool setPostWeight(std::uint32_t value) noexcept = 0;
};

// A vibrato has a curve for each kind of point; the code behind the last kind is that of none.
inline constexpr std::uint32_t vibratoCurves = KRT_PLX_VIBRATO_NONE;

class VibratoBase;
class VibratoParameter;
class MutableVibratoParameter;

// A point of a vibrato's depth or rate curve.
class VibratoParameterBase : private Interface {
public:
    virtual std::uint32_t type() const noexcept = 0;
    virtual std::int32_t pos() const noexcept = 0;
    virtual std::uint32_t value() const noexcept = 0;
    virtual bool isMutable() const noexcept = 0;
    virtual ~VibratoParameterBase() = default;

    virtual VibratoParameter* asVibratoParameter() noexcept { return nullptr; }
    virtual MutableVibratoParameter* asMutableVibratoParameter() noexcept { return nullptr; }
};

class VibratoParameter : public virtual VibratoParameterBase {
public:
    virtual VibratoBase* parent() const noexcept = 0;
};

class MutableVibratoParameter : public virtual VibratoParameterBase {
public:
    virtual VibratoBase* parent() const noexcept = 0;
    virtual bool remove() = 0;
    virtual bool move(std::int32_t pos) = 0;
    virtual bool setValue(std::uint32_t value) noexcept = 0;
};

class Vibrato;
class MutableVibrato;

// A type, a length and two curves of points.
class VibratoBase : private Interface {
public:
    virtual std::uint32_t type() const noexcept = 0;
    virtual std::int32_t duration() const noexcept = 0;
    // -1 for a type that is neither depth nor rate.
    virtual std::int64_t numParameters(std::uint32_t type) const noexcept = 0;
    virtual bool isMutable() const noexcept = 0;
    virtual ~VibratoBase() = default;

    virtual Vibrato* asVibrato() noexcept { return nullptr; }
    virtual MutableVibrato* asMutableVibrato() noexcept { return nullptr; }
};

class Vibrato : public virtual VibratoBase {
public:
    virtual NoteBase* parent() const noexcept = 0;
    virtual VibratoParameter* parameter(std::uint32_t type, std::uint64_t index) const noexcept = 0;
    virtual bool hasParameter(std::uint32_t type,
                              const VibratoParameterBase* element) const noexcept = 0;
};

class MutableVibrato : public virtual VibratoBase {
public:
    virtual NoteBase* parent() const noexcept = 0;
    virtual bool setType(std::uint32_t value) noexcept = 0;
    virtual bool setDuration(std::int32_t value) noexcept = 0;
    virtual MutableVibratoParameter* parameter(std::uint32_t type,
                                               std::uint64_t index) const noexcept = 0;
    virtual bool hasParameter(std::uint32_t type,
                              const VibratoParameterBase* element) const noexcept = 0;
    virtual MutableVibratoParameter* insertParameter(std::uint32_t type, std::int32_t pos,
                                                     std::uint32_t value) = 0;
};

} // namespace Korvel::CANTORIS::PLX
