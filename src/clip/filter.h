// The interfaces of a clip's filter: the search tags by which a host's browser finds it.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class MutableFilter;

class Filter : private Interface {
public:
    virtual std::uint64_t numSingerGroups() const noexcept = 0;
    virtual const Char* singerGroup(std::uint64_t index) const noexcept = 0;
    virtual std::uint64_t numVendors() const noexcept = 0;
    virtual const Char* vendor(std::uint64_t index) const noexcept = 0;
    virtual std::uint64_t numLanguages() const noexcept = 0;
    virtual std::int32_t language(std::uint64_t index) const noexcept = 0;
    virtual std::uint64_t numSingerIDs() const noexcept = 0;
    virtual const Char* singerID(std::uint64_t index) const noexcept = 0;
    virtual std::uint64_t numTypes() const noexcept = 0;
    virtual const Char* type(std::uint64_t index) const noexcept = 0;
    virtual std::uint64_t numGenres() const noexcept = 0;
    virtual const Char* genre(std::uint64_t index) const noexcept = 0;
    virtual ~Filter() = default;

    virtual MutableFilter* asMutableFilter() noexcept { return nullptr; }
};

class MutableFilter {
public:
    virtual bool addSingerGroup(const Char* text) = 0;
    virtual bool removeSingerGroup(const Char* text) = 0;
    virtual bool addVendor(const Char* text) = 0;
    virtual bool removeVendor(const Char* text) = 0;
    virtual bool addLanguage(std::int32_t number) = 0;
    virtual bool removeLanguage(std::int32_t number) = 0;
    virtual bool addSingerID(const Char* text) = 0;
    virtual bool removeSingerID(const Char* text) = 0;
    virtual bool addType(const Char* text) = 0;
    virtual bool removeType(const Char* text) = 0;
    virtual bool addGenre(const Char* text) = 0;
    virtual bool removeGenre(const Char* text) = 0;
    virtual ~MutableFilter() = default;

    virtual Filter* asFilter() noexcept = 0;
};

} // namespace Korvel::CANTORIS::PLX
