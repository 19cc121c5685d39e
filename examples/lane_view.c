#include "lane_view.h"

#include <stdio.h>
#include <stdlib.h>

#include "conventions.h"
#include "text.h"

enum { text_columns = 44, most_curve_columns = 64 };

typedef struct Point {
    int64_t tick;
    int32_t value;
} Point;

typedef struct Lane {
    Point* points;
    size_t count;
    int32_t lowest;
    int32_t highest;
} Lane;

static Lane read_lane(KRT_PLX_MidiControllerBase* controller)
{
    uint64_t count = 0;
    KRT_PLX_MidiControllerBase_numEvents(controller, &count);
    Lane lane = {allocate((size_t)count, sizeof(Point)), (size_t)count, INT32_MAX, INT32_MIN};
    for (size_t i = 0; i < lane.count; ++i) {
        KRT_PLX_MidiEventBase* event = KRT_PLX_MidiController_event(controller, i);
        Point point = {KRT_PLX_MidiEventBase_pos(event), KRT_PLX_MidiEventBase_value(event)};
        lane.points[i] = point;
        lane.lowest = point.value < lane.lowest ? point.value : lane.lowest;
        lane.highest = point.value > lane.highest ? point.value : lane.highest;
    }
    return lane;
}

/* How many events there are up to a time. */
static size_t events_until(const Lane* lane, int64_t tick)
{
    size_t count = 0;
    while (count < lane->count && lane->points[count].tick <= tick) {
        ++count;
    }
    return count;
}

static const char* level(const Lane* lane, int64_t value)
{
    static const char* const levels[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    int64_t extent = (int64_t)lane->highest - lane->lowest;
    return levels[extent > 0 ? (value - lane->lowest) * 7 / extent : 3];
}

/*
 * A value holds until the next event. Of several values between two times, the one that is farthest
 * from the one before is shown: a short dip would be lost in an average. Before the first event there
 * is no value.
 */
static const char* level_between(const Lane* lane, int64_t begin, int64_t end)
{
    size_t first = events_until(lane, begin - 1);
    size_t last = events_until(lane, end - 1);
    if (last == 0) {
        return " ";
    }
    first = first > 0 ? first - 1 : 0;
    int64_t start = lane->points[first].value;
    int64_t shown = start;
    for (size_t i = first; i < last; ++i) {
        int64_t value = lane->points[i].value;
        shown = llabs(value - start) > llabs(shown - start) ? value : shown;
    }
    return level(lane, shown);
}

static void print_curve(const Lane* lane, int64_t duration, int columns)
{
    for (int column = 0; column < columns; ++column) {
        int64_t begin = column * duration / columns;
        int64_t end = (column + 1) * duration / columns;
        fputs(level_between(lane, begin, end), stdout);
    }
    printf("\n");
}

static void print_lane(const char* title, const char* name, const Lane* lane)
{
    printf("%-9s%-14s%4u  %5d to %-5d  ", title, name, (unsigned)lane->count, (int)lane->lowest,
           (int)lane->highest);
}

void print_lanes(KRT_PLX_PartBase* part, int width)
{
    int left = width - text_columns;
    int columns = left < most_curve_columns ? left : most_curve_columns;
    const char* title = "Lanes";
    int64_t duration = KRT_PLX_MidiPartBase_duration(part);
    for (uint32_t type = 0; type < number_of_lane_types; ++type) {
        KRT_PLX_MidiControllerBase* controller = KRT_PLX_MidiPart_midiController(part, type);
        if (controller != NULL) {
            Lane lane = read_lane(controller);
            print_lane(title, lane_name(type), &lane);
            print_curve(&lane, duration, columns);
            free(lane.points);
            title = "";
        }
    }
}
