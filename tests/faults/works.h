// What a host does with the library, one kind of work after the other.
#pragma once

#include <string>
#include <vector>

#include "world.h"

namespace faults {

struct Work {
    std::string name;
    bool lists; // a scan: without some of its files it does what it can
    bool usesDisk;

    void (*prepare)(World& world);
    bool (*run)(World& world); // nothing but calls of the library; false when it reports a failure

    // After a run that reported success.
    void (*expectDone)(World& world);

    // What a failure of the system may leave changed on disk: paths that begin so. When memory runs
    // out nothing changes, except that a folder may have been made.
    std::string (*mayTouch)(World& world);
    std::string_view mayMake = {};
};

const std::vector<Work>& works();
const Work& workNamed(std::string_view name);

// The name of a work, in the form that a test's may have.
std::string caseName(std::string work);

} // namespace faults
