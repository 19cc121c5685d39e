#include "korvel/plx/filter.h"

#include "manager/exports/guard.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

// Filter

bool KRT_PLX_Filter_numGenres(KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Filter::numGenres>(filter, count);
}

const KRT_PLX_Char* KRT_PLX_Filter_genre(KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Filter::genre>(filter, nullptr, index);
}

bool KRT_PLX_Filter_numLanguages(KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Filter::numLanguages>(filter, count);
}

int32_t KRT_PLX_Filter_language(KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Filter::language>(filter, KRT_PLX_NO_INT32, index);
}

bool KRT_PLX_Filter_numSingerGroups(KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Filter::numSingerGroups>(filter, count);
}

const KRT_PLX_Char* KRT_PLX_Filter_singerGroup(KRT_PLX_Filter* filter,
                                               uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Filter::singerGroup>(filter, nullptr, index);
}

bool KRT_PLX_Filter_numSingerIDs(KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Filter::numSingerIDs>(filter, count);
}

const KRT_PLX_Char* KRT_PLX_Filter_singerID(KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Filter::singerID>(filter, nullptr, index);
}

bool KRT_PLX_Filter_numTypes(KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Filter::numTypes>(filter, count);
}

const KRT_PLX_Char* KRT_PLX_Filter_type(KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Filter::type>(filter, nullptr, index);
}

bool KRT_PLX_Filter_numVendors(KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Filter::numVendors>(filter, count);
}

const KRT_PLX_Char* KRT_PLX_Filter_vendor(KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Filter::vendor>(filter, nullptr, index);
}

// MutableFilter

bool KRT_PLX_MutableFilter_addGenre(KRT_PLX_Filter* filter,
                                    const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::addGenre>(filter, false, text);
}

bool KRT_PLX_MutableFilter_addLanguage(KRT_PLX_Filter* filter, int32_t language) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::addLanguage>(filter, false, language);
}

bool KRT_PLX_MutableFilter_addSingerGroup(KRT_PLX_Filter* filter,
                                          const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::addSingerGroup>(filter, false, text);
}

bool KRT_PLX_MutableFilter_addSingerID(KRT_PLX_Filter* filter,
                                       const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::addSingerID>(filter, false, text);
}

bool KRT_PLX_MutableFilter_addType(KRT_PLX_Filter* filter,
                                   const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::addType>(filter, false, text);
}

bool KRT_PLX_MutableFilter_addVendor(KRT_PLX_Filter* filter,
                                     const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::addVendor>(filter, false, text);
}

bool KRT_PLX_MutableFilter_removeGenre(KRT_PLX_Filter* filter,
                                       const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::removeGenre>(filter, false, text);
}

bool KRT_PLX_MutableFilter_removeLanguage(KRT_PLX_Filter* filter, int32_t language) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::removeLanguage>(filter, false, language);
}

bool KRT_PLX_MutableFilter_removeSingerGroup(KRT_PLX_Filter* filter,
                                             const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::removeSingerGroup>(filter, false, text);
}

bool KRT_PLX_MutableFilter_removeSingerID(KRT_PLX_Filter* filter,
                                          const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::removeSingerID>(filter, false, text);
}

bool KRT_PLX_MutableFilter_removeType(KRT_PLX_Filter* filter,
                                      const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::removeType>(filter, false, text);
}

bool KRT_PLX_MutableFilter_removeVendor(KRT_PLX_Filter* filter,
                                        const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableFilter::removeVendor>(filter, false, text);
}
