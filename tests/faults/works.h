// What a host does with the library: one work for each kind of call.
#pragma once

#include <string>
#include <vector>

#include "world.h"

namespace faults {

struct Work {
    std::string name;
    bool lists; // a scan: it may lose some files and still succeed
    bool usesDisk;

    void (*prepare)(World& world);
    bool (*run)(World& world); // only calls the library; false when the library reports a failure

    // Called after a run that reported success.
    void (*expectDone)(World& world);

    // The beginnings of the paths that may be changed on disk after a failure of the system. When
    // memory runs out nothing changes, except that a folder may have been made.
    std::string (*mayTouch)(World& world);
    std::string_view mayMake = {};
};

const std::vector<Work>& works();
const Work& workNamed(std::string_view name);

// The name of a work, as a name of a test.
std::string caseName(std::string work);

} // namespace faults
