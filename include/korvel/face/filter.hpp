/**
 * @file filter.hpp
 * The search tags of a clip; see plx/filter.h.
 */
#ifndef KORVEL_FACE_FILTER_HPP
#define KORVEL_FACE_FILTER_HPP

#include <optional>

#include <korvel/face/handle.hpp>
#include <korvel/face/range.hpp>
#include <korvel/face/text.hpp>
#include <korvel/plx/filter.h>

namespace korvel::plx {

/** The tags of any clip, in the order in which they were added. */
class Filter : public Handle<KRT_PLX_Filter> {
public:
    using Handle::Handle;

    [[nodiscard]] std::uint64_t numGenres() const noexcept
    {
        return detail::count(KRT_PLX_Filter_numGenres, raw());
    }
    [[nodiscard]] StringView genre(std::uint64_t index) const noexcept
    {
        return detail::view(KRT_PLX_Filter_genre(raw(), index));
    }
    [[nodiscard]] auto genres() const noexcept
    {
        return Range<Filter, &Filter::numGenres, &Filter::genre>(*this);
    }

    [[nodiscard]] std::uint64_t numLanguages() const noexcept
    {
        return detail::count(KRT_PLX_Filter_numLanguages, raw());
    }
    /** Empty for an index past the end. */
    [[nodiscard]] std::optional<std::int32_t> language(std::uint64_t index) const noexcept
    {
        const std::int32_t number = languageAt(index);
        return number != KRT_PLX_NO_INT32 ? std::optional<std::int32_t>(number) : std::nullopt;
    }
    [[nodiscard]] auto languages() const noexcept
    {
        return Range<Filter, &Filter::numLanguages, &Filter::languageAt>(*this);
    }

    [[nodiscard]] std::uint64_t numSingerGroups() const noexcept
    {
        return detail::count(KRT_PLX_Filter_numSingerGroups, raw());
    }
    [[nodiscard]] StringView singerGroup(std::uint64_t index) const noexcept
    {
        return detail::view(KRT_PLX_Filter_singerGroup(raw(), index));
    }
    [[nodiscard]] auto singerGroups() const noexcept
    {
        return Range<Filter, &Filter::numSingerGroups, &Filter::singerGroup>(*this);
    }

    [[nodiscard]] std::uint64_t numSingerIDs() const noexcept
    {
        return detail::count(KRT_PLX_Filter_numSingerIDs, raw());
    }
    [[nodiscard]] StringView singerID(std::uint64_t index) const noexcept
    {
        return detail::view(KRT_PLX_Filter_singerID(raw(), index));
    }
    [[nodiscard]] auto singerIDs() const noexcept
    {
        return Range<Filter, &Filter::numSingerIDs, &Filter::singerID>(*this);
    }

    [[nodiscard]] std::uint64_t numTypes() const noexcept
    {
        return detail::count(KRT_PLX_Filter_numTypes, raw());
    }
    [[nodiscard]] StringView type(std::uint64_t index) const noexcept
    {
        return detail::view(KRT_PLX_Filter_type(raw(), index));
    }
    [[nodiscard]] auto types() const noexcept
    {
        return Range<Filter, &Filter::numTypes, &Filter::type>(*this);
    }

    [[nodiscard]] std::uint64_t numVendors() const noexcept
    {
        return detail::count(KRT_PLX_Filter_numVendors, raw());
    }
    [[nodiscard]] StringView vendor(std::uint64_t index) const noexcept
    {
        return detail::view(KRT_PLX_Filter_vendor(raw(), index));
    }
    [[nodiscard]] auto vendors() const noexcept
    {
        return Range<Filter, &Filter::numVendors, &Filter::vendor>(*this);
    }

private:
    [[nodiscard]] std::int32_t languageAt(std::uint64_t index) const noexcept
    {
        return KRT_PLX_Filter_language(raw(), index);
    }
};

/** The tags of an editable clip. Adding a tag that is there already is no failure. */
class MutableFilter : public Filter {
public:
    using Filter::Filter;

    template <typename Text>
    bool addGenre(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_addGenre(raw(), detail::terminated(text).c_str());
    }
    bool addLanguage(std::int32_t number) const noexcept
    {
        return KRT_PLX_MutableFilter_addLanguage(raw(), number);
    }
    template <typename Text>
    bool addSingerGroup(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_addSingerGroup(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool addSingerID(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_addSingerID(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool addType(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_addType(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool addVendor(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_addVendor(raw(), detail::terminated(text).c_str());
    }

    template <typename Text>
    bool removeGenre(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_removeGenre(raw(), detail::terminated(text).c_str());
    }
    bool removeLanguage(std::int32_t number) const noexcept
    {
        return KRT_PLX_MutableFilter_removeLanguage(raw(), number);
    }
    template <typename Text>
    bool removeSingerGroup(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_removeSingerGroup(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool removeSingerID(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_removeSingerID(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool removeType(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_removeType(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool removeVendor(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableFilter_removeVendor(raw(), detail::terminated(text).c_str());
    }
};

} // namespace korvel::plx

#endif
