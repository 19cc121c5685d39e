// The works whose instructions are counted: bench_gate prepare|compiler|scan|read|save
//
// Works in the current folder and names files relative to it, so that the count does not depend on
// where that is. "prepare" writes the files.
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include <gnu/libc-version.h>

#include "data/clips.h"
#include "data/documents.h"
#include "data/files.h"
#include "data/parts.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "host/note_fields.h"

namespace {

constexpr std::size_t clipCount = 200;
constexpr std::size_t noteCount = 200;

std::function<void()> work;

} // namespace

// The counting begins and ends with this function, which is known by its name.
extern "C" [[gnu::noinline]] void measuredWork()
{
    work();
}

namespace {

using bench::Manager;
using bench::Part;
using bench::Path;
using bench::require;

Part part()
{
    return bench::makePart({.notes = noteCount}, 1);
}

void prepare()
{
    bench::requireListedFacts();
    for (std::size_t i = 0; i < clipCount; ++i) {
        const Path folder = Path("system") / ("pack-" + std::to_string(i / 50)) /
                            ("clip-" + std::to_string(i % 50));
        std::filesystem::create_directories(folder);
        bench::writeFile(folder / "property.json", bench::propertyDocument(bench::makeClip(i)));
        bench::writeFile(folder / "clip.kxclip", "{}");
    }
    std::filesystem::create_directories("part/clip");
    bench::writeFile("part/clip/property.json", bench::propertyDocument(bench::makeClip(0)));
    bench::writeFile("part/clip/clip.kxclip", bench::dataDocument("part", "Part", part()));
}

void scan()
{
    Manager manager({"system"}, "user");
    work = [&] { manager.read(); };
    measuredWork();
    require(manager.systemClipCount() == clipCount, "the scan missed clips");
}

void read()
{
    Manager manager({"part"}, "user");
    manager.read();
    bool succeeded = false;
    work = [&] { succeeded = KRT_PLX_Clip_readPart(manager.systemClip(0)); };
    measuredWork();
    require(succeeded, "the part could not be read");
}

void save()
{
    Manager manager({"part"}, "user");
    auto* const clip = KRT_PLX_Manager_createMutableClip(manager.handle());
    bench::buildPart(clip, bench::toHost(part()));
    const bench::Text name = support::text("Saved");
    KRT_PLX_ClipBase* saved = nullptr;
    work = [&] { saved = KRT_PLX_MutableClip_save(clip, name.c_str(), false, nullptr); };
    measuredWork();
    require(saved != nullptr && KRT_PLX_UserClip_remove(saved), "the clip could not be saved");
}

void printCompiler()
{
#ifdef __clang__
    std::cout << "clang";
#else
    std::cout << "g++";
#endif
    std::cout << ' ' << __VERSION__ << ", glibc " << gnu_get_libc_version() << '\n';
}

} // namespace

int main(int count, char** arguments)
{
    const std::map<std::string, void (*)()> works{{"prepare", prepare},
                                                  {"compiler", printCompiler},
                                                  {"scan", scan},
                                                  {"read", read},
                                                  {"save", save}};
    try {
        works.at(count == 2 ? arguments[1] : "")();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench_gate: " << error.what() << '\n';
        return 1;
    }
}
