#include "wave.h"

#include <math.h>
#include <stdint.h>
#include <stdio.h>

#include "console.h"

enum { samples_per_second = 8000, number_of_samples = samples_per_second };

/* Numbers in wave files have their lowest byte first. */
static void put_number(FILE* file, uint32_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i) {
        fputc((int)(number >> (8 * i) & 0xFF), file);
    }
}

/* Mono, 16 bits a sample. */
static void put_header(FILE* file)
{
    const uint32_t data_size = 2 * number_of_samples;
    fputs("RIFF", file);
    put_number(file, 36 + data_size, 4);
    fputs("WAVEfmt ", file);
    put_number(file, 16, 4);
    put_number(file, 1, 2);
    put_number(file, 1, 2);
    put_number(file, samples_per_second, 4);
    put_number(file, 2 * samples_per_second, 4);
    put_number(file, 2, 2);
    put_number(file, 16, 2);
    fputs("data", file);
    put_number(file, data_size, 4);
}

/* The partials of a bell are not whole multiples of one frequency, and the higher ones fade sooner. */
static double bell_at(double second)
{
    static const double ratios[] = {1.0, 2.0, 2.4, 3.0, 4.5};
    const double circle = 6.283185307179586;
    double sum = 0.0;
    for (int i = 0; i < 5; ++i) {
        sum += sin(circle * 220.0 * ratios[i] * second) * exp(-2.5 * ratios[i] * second);
    }
    return sum / 5.0;
}

static void put_samples(FILE* file)
{
    for (int i = 0; i < number_of_samples; ++i) {
        double sample = 24000.0 * bell_at((double)i / (double)samples_per_second);
        put_number(file, (uint32_t)(int32_t)sample, 2);
    }
}

bool write_bell(const char* path)
{
    FILE* file = console_open_file(path, "wb");
    if (file == NULL) {
        return false;
    }
    put_header(file);
    put_samples(file);
    bool is_written = ferror(file) == 0;
    is_written = fclose(file) == 0 && is_written;
    if (!is_written) {
        console_remove_file(path);
    }
    return is_written;
}
