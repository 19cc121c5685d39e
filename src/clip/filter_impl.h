#pragma once

#include "clip/editable_tags.h"
#include "clip/filter.h"
#include "model/fields.h"

namespace Korvel::CANTORIS::PLX {

// For both implementations of the tag lists.
template <class Tags>
class FilterImpl : public Filter {
public:
    Tags& tags() { return tags_; }

    std::uint64_t numSingerGroups() const noexcept override { return count(Tag::singerGroup); }
    const Char* singerGroup(std::uint64_t index) const noexcept override
    {
        return text(Tag::singerGroup, index);
    }
    std::uint64_t numVendors() const noexcept override { return count(Tag::vendor); }
    const Char* vendor(std::uint64_t index) const noexcept override
    {
        return text(Tag::vendor, index);
    }
    std::uint64_t numLanguages() const noexcept override { return tags_.languages().size(); }
    std::int32_t language(std::uint64_t index) const noexcept override
    {
        return index < numLanguages() ? tags_.languages()[static_cast<std::size_t>(index)]
                                      : KRT_PLX_NO_INT32;
    }
    std::uint64_t numSingerIDs() const noexcept override { return count(Tag::singerID); }
    const Char* singerID(std::uint64_t index) const noexcept override
    {
        return text(Tag::singerID, index);
    }
    std::uint64_t numTypes() const noexcept override { return count(Tag::type); }
    const Char* type(std::uint64_t index) const noexcept override { return text(Tag::type, index); }
    std::uint64_t numGenres() const noexcept override { return count(Tag::genre); }
    const Char* genre(std::uint64_t index) const noexcept override
    {
        return text(Tag::genre, index);
    }

private:
    std::uint64_t count(Tag tag) const { return tags_.texts(tag).size(); }
    const Char* text(Tag tag, std::uint64_t index) const
    {
        return index < count(tag) ? tags_.texts(tag)[static_cast<std::size_t>(index)].data()
                                  : nullptr;
    }

    Tags tags_;
};

class MutableFilterImpl final : public MutableFilter, public FilterImpl<EditableTags> {
public:
    bool addSingerGroup(const Char* text) override { return tags().add(Tag::singerGroup, text); }
    bool removeSingerGroup(const Char* text) override
    {
        return tags().remove(Tag::singerGroup, text);
    }
    bool addVendor(const Char* text) override { return tags().add(Tag::vendor, text); }
    bool removeVendor(const Char* text) override { return tags().remove(Tag::vendor, text); }
    bool addLanguage(std::int32_t number) override { return tags().addLanguage(number); }
    bool removeLanguage(std::int32_t number) override { return tags().removeLanguage(number); }
    bool addSingerID(const Char* text) override { return tags().add(Tag::singerID, text); }
    bool removeSingerID(const Char* text) override { return tags().remove(Tag::singerID, text); }
    bool addType(const Char* text) override { return tags().add(Tag::type, text); }
    bool removeType(const Char* text) override { return tags().remove(Tag::type, text); }
    bool addGenre(const Char* text) override { return tags().add(Tag::genre, text); }
    bool removeGenre(const Char* text) override { return tags().remove(Tag::genre, text); }
    Filter* asFilter() noexcept override { return this; }
    MutableFilter* asMutableFilter() noexcept override { return this; }
};

} // namespace Korvel::CANTORIS::PLX
