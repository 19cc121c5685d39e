#include <inttypes.h>
#include <stdio.h>

#include "kit.h"

void kitTell(KRT_PLX_KitReport* report, const KRT_PLX_KitNotice* notice)
{
    if (report == NULL) {
        return;
    }
    ++report->count;
    if (report->listener != NULL) {
        report->listener(report->context, notice);
    }
}

void kitTellInner(const KitPlace* place, const char* property, uint32_t reason, uint64_t inner,
                  int32_t pos)
{
    const KRT_PLX_KitNotice notice = {place->item, reason, property, place->index, inner, pos, 0};
    kitTell(place->report, &notice);
}

void kitTellOf(const KitPlace* place, const char* property, uint32_t reason)
{
    kitTellInner(place, property, reason, 0, place->pos);
}

/* "note 3 at 480", "controller: dynamics", "part". */
static void describeItem(const KRT_PLX_KitNotice* notice, char* text, size_t size)
{
    const char* item = KRT_PLX_Kit_codeText(KRT_PLX_KIT_ITEMS, notice->item);
    if (notice->item == KRT_PLX_KIT_LANE) {
        const uint32_t type = (uint32_t)notice->index;
        snprintf(text, size, "%s %s at %" PRId32, item,
                 KRT_PLX_Kit_codeText(KRT_PLX_KIT_CONTROLLER_TYPES, type), notice->pos);
    } else if (notice->item >= KRT_PLX_KIT_AUDIO_EFFECT) {
        snprintf(text, size, "%s %" PRIu64, item, notice->index + 1);
    } else if (notice->item >= KRT_PLX_KIT_NOTE) {
        snprintf(text, size, "%s %" PRIu64 " at %" PRId32, item, notice->index + 1, notice->pos);
    } else {
        snprintf(text, size, "%s", item);
    }
}

size_t KRT_PLX_Kit_describe(const KRT_PLX_KitNotice* notice, char* text, size_t capacity)
{
    char item[96] = "";
    if (notice == NULL) {
        if (text != NULL && capacity > 0) {
            text[0] = '\0';
        }
        return 1;
    }
    describeItem(notice, item, sizeof item);
    const char* reason = KRT_PLX_Kit_codeText(KRT_PLX_KIT_REASONS, notice->reason);
    const char* colon = notice->property[0] != '\0' ? ": " : "";
    const int length = snprintf(text, text != NULL ? capacity : 0, "%s%s%s: %s", item, colon,
                                notice->property, reason);
    return length < 0 ? 1 : (size_t)length + 1;
}
