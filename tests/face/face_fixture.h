// A manager on two fresh folders, and a clip that has something of everything.
#pragma once

#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <korvel/plx.hpp>

#include "support/temp_dir.h"

namespace plx = korvel::plx;

// What a range gives, for comparing.
template <typename Result, typename RangeType, typename Transform>
std::vector<Result> collect(const RangeType& range, Transform transform)
{
    std::vector<Result> results;
    for (const auto element : range) {
        results.push_back(transform(element));
    }
    return results;
}

template <typename RangeType>
std::vector<std::string> texts(const RangeType& range)
{
    return collect<std::string>(range, [](plx::StringView text) { return plx::toUtf8(text); });
}

class FaceTest : public testing::Test {
protected:
    FaceTest();
    ~FaceTest() override;
    FaceTest(const FaceTest&) = delete;
    FaceTest& operator=(const FaceTest&) = delete;

    // An editable clip with a MIDI part: two notes, vibrato, lanes, effects, tags.
    plx::MutableClip makeMidiClip();

    // The same, saved and with its part read.
    plx::UserClip saveMidiClip(std::string_view name = "Morning");

    support::TempDir folder;
    plx::Manager manager;
};
