#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "alternatives/nlohmann.h"
#include "alternatives/plain.h"
#include "alternatives/simdjson.h"
#include "data/files.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "host/read_back.h"
#include "limit/files.h"
#include "support/contest.h"
#include "works/works.h"

namespace bench {

namespace {

// A run reads the parts of as many clips; figures are per clip. No part is read a second time.
class ReadPart {
public:
    ReadPart(const Run& run, const std::string& name, std::size_t clips)
        : data_(run.data), file_(data_.document(name)), folder_(data_.clips(name)), clips_(clips)
    {
    }

    Contestant library() const;
    Contestant bareRead() const;
    Contestant plainParse() const;
    Contestant plainForm() const;
    Contestant nlohmann() const;
    Contestant simdjson() const;

    void checkEqual() const;

private:
    template <class PartT, class Read>
    Contestant reader(const char* name, Read read) const;
    template <class Work>
    Contestant repeated(const char* name, Work work) const;

    const DataFolder& data_;
    Path file_;
    Path folder_;
    std::size_t clips_;
};

// Reading the catalogue anew, between the runs, makes clips whose part has not been read.
Contestant ReadPart::library() const
{
    const auto manager = std::make_shared<Manager>(std::vector{folder_}, data_.emptyFolder());
    const auto run = [manager, clips = clips_] {
        for (std::uint64_t i = 0; i < clips; ++i) {
            require(KRT_PLX_Clip_readPart(manager->systemClip(i)), "a part could not be read");
        }
    };
    return {.name = "library",
            .run = run,
            .before = [manager] { manager->read(); },
            .after = [manager] { manager->read(); },
            .things = static_cast<double>(clips_)};
}

template <class PartT, class Read>
Contestant ReadPart::reader(const char* name, Read read) const
{
    const auto parts = std::make_shared<std::vector<PartT>>(clips_);
    const auto run = [parts, read, file = file_] {
        for (PartT& part : *parts) {
            part = read(file);
        }
    };
    return {.name = name,
            .run = run,
            .after = [parts] { *parts = std::vector<PartT>(parts->size()); },
            .things = static_cast<double>(clips_)};
}

template <class Work>
Contestant ReadPart::repeated(const char* name, Work work) const
{
    const auto run = [work, file = file_, clips = clips_] {
        for (std::size_t i = 0; i < clips; ++i) {
            require(work(file) != 0, "a file could not be read");
        }
    };
    return {.name = name, .run = run, .things = static_cast<double>(clips_)};
}

Contestant ReadPart::bareRead() const
{
    return repeated("limit: bare read", readBare);
}

Contestant ReadPart::plainParse() const
{
    return repeated("limit: RapidJSON's parse alone", plain::parse);
}

Contestant ReadPart::plainForm() const
{
    return reader<plain::Part>("plain form", plain::readPart);
}

Contestant ReadPart::nlohmann() const
{
    return reader<Part>("filesystem + nlohmann", with_nlohmann::readPart);
}

Contestant ReadPart::simdjson() const
{
    return reader<Part>("filesystem + simdjson", with_simdjson::readPart);
}

bool isEqual(const plain::Part& plainPart, HostPart part)
{
    const auto isSameNote = [](const auto& object, const HostNote& note) {
        return *object == note;
    };
    const bool notesAreEqual =
        std::equal(plainPart.noteObjects.begin(), plainPart.noteObjects.end(), part.notes.begin(),
                   part.notes.end(), isSameNote);
    part.notes.clear();
    return notesAreEqual && part == plainPart;
}

// A faster answer to another question would be worth nothing.
void ReadPart::checkEqual() const
{
    Manager manager({folder_}, data_.emptyFolder());
    manager.read();
    require(KRT_PLX_Clip_readPart(manager.systemClip(0)), "a part could not be read");
    const Part part = partOf(KRT_PLX_Clip_midiPart(manager.systemClip(0)));
    require(!part.notes.empty(), "a part without notes was read");
    require(part == with_nlohmann::readPart(file_), "nlohmann's part differs from the library's");
    require(part == with_simdjson::readPart(file_), "simdjson's part differs from the library's");
    require(isEqual(plain::readPart(file_), toHost(part)),
            "the plain form's part differs from the library's");
}

Contestant atMost(double most, Contestant contestant)
{
    contestant.target = Target{most};
    return contestant;
}

std::string sizeOf(const Path& file)
{
    const auto bytes = std::filesystem::file_size(file);
    return bytes < 1000000 ? std::to_string(bytes / 1000) + " KB"
                           : std::to_string(bytes / 1000000) + " MB";
}

} // namespace

void readOrdinaryParts(Run& run)
{
    const ReadPart read(run, "ordinary", ordinaryCopies);
    read.checkEqual();
    Contest contest("readPart, " + sizeOf(run.data.document("ordinary")), run.rounds * 5);
    contest.add(read.library());
    contest.add(read.bareRead());
    contest.add(read.plainParse());
    contest.add(atMost(0.55, read.plainForm()));
    contest.add(atMost(1.0 / 3, read.nlohmann()));
    contest.add(atMost(1.3, read.simdjson()));
    contest.run(run.clock, run.table);
}

void readBigPart(Run& run)
{
    const ReadPart read(run, "big", 1);
    read.checkEqual();
    Contest contest("readPart, " + sizeOf(run.data.document("big")), run.rounds);
    contest.add(read.library());
    contest.add(read.bareRead());
    contest.add(atMost(0.7, read.plainParse()));
    contest.add(read.plainForm());
    contest.add(read.nlohmann());
    contest.add(read.simdjson());
    contest.run(run.clock, run.table);
}

} // namespace bench
