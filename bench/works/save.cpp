#include <memory>
#include <string>

#include "data/parts.h"
#include "host/build.h"
#include "host/catalogue.h"
#include "limit/rapidjson_writer.h"
#include "support/contest.h"
#include "works/works.h"

namespace bench {

namespace {

// The big clip in its editable form, and what was saved of it last.
class BigClip {
public:
    explicit BigClip(const DataFolder& data)
        : manager_({data.emptyFolder()}, data.scratch()),
          clip_(KRT_PLX_Manager_createMutableClip(manager_.handle()))
    {
        buildPart(clip_, toHost(makePart({.notes = data.size().bigNotes}, 2)));
    }

    void save(Layout layout)
    {
        static const Text name = support::text("Big – 夜");
        saved_ = KRT_PLX_MutableClip_save(clip_, name.c_str(), layout == Layout::indented, nullptr);
        require(saved_ != nullptr, "the big clip could not be saved");
    }

    [[nodiscard]] Path savedFile() const { return clipOf(saved_).path; }

    void removeSaved() const
    {
        require(KRT_PLX_UserClip_remove(saved_), "a saved clip could not be removed");
    }

private:
    Manager manager_;
    KRT_PLX_ClipBase* clip_;
    KRT_PLX_ClipBase* saved_ = nullptr;
};

Contestant library(const std::shared_ptr<BigClip>& clip, Layout layout)
{
    return {.name = "library",
            .run = [=] { clip->save(layout); },
            .after = [=] { clip->removeSaved(); }};
}

Contestant limit(const std::shared_ptr<ReadyDocument>& document, const Path& file, Layout layout)
{
    return {
        .name = "limit: RapidJSON's writer alone",
        .run = [=] { require(document->write(file, layout), "the limit could not be written"); },
        .after = [=] { std::filesystem::remove(file); },
        .target = Target{1.5}};
}

} // namespace

void saveBigClip(Run& run)
{
    std::filesystem::create_directories(run.data.scratch());
    const Path limitFile = run.data.scratch() / "limit.json";
    const auto clip = std::make_shared<BigClip>(run.data);
    clip->save(Layout::compact);
    const auto document = std::make_shared<ReadyDocument>(clip->savedFile());
    require(document->write(limitFile, Layout::compact) &&
                std::filesystem::file_size(limitFile) ==
                    std::filesystem::file_size(clip->savedFile()),
            "the library and RapidJSON write documents of different lengths");
    clip->removeSaved();
    for (const Layout layout : {Layout::compact, Layout::indented}) {
        const char* const name = layout == Layout::compact ? "compact" : "indented";
        Contest contest(std::string("save the big clip, ") + name, run.rounds);
        contest.add(library(clip, layout));
        contest.add(limit(document, limitFile, layout));
        contest.run(run.clock, run.table);
    }
}

} // namespace bench
