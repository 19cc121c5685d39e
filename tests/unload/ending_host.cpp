// A host that ends while the library is working in it: ending_host WORK FOLDER
//
//     creating   threads create and destroy managers without a pause
//     reading    threads read clips without a pause
//     asking     the host's last destructor asks for a manager that nobody has destroyed
//
// The exit code is 0, or 1 when the answer was wrong. ending_test starts this program.
#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

#include <korvel/plx.h>

#include "support/files.h"
#include "support/text.h"

namespace {

// Each thread has its own texts: those of the program are destroyed while the threads still run.
struct Request {
    support::Text appID;
    support::Text systemFolder;
    support::Text userFolder;

    [[nodiscard]] KRT_PLX_Manager* create() const
    {
        return KRT_PLX_CreateManager(appID.c_str(), systemFolder.c_str(), userFolder.c_str(),
                                     nullptr, 0, nullptr, 0, nullptr);
    }
};

Request request(const support::Path& folder, const std::string& appID)
{
    return {support::text(appID), support::pathText(folder / "system"),
            support::pathText(folder / "user")};
}

[[noreturn]] void createForEver(const Request& own)
{
    for (;;) {
        KRT_PLX_Manager_destroy(own.create());
    }
}

[[noreturn]] void readForEver(const Request& own)
{
    KRT_PLX_Manager* const manager = own.create();
    for (;;) {
        KRT_PLX_Manager_readAllClipFiles(manager);
        for (std::uint64_t i = 0; i < 3; ++i) {
            KRT_PLX_Clip_readPart(KRT_PLX_Manager_systemClip(manager, i));
        }
    }
}

template <typename Work>
void startThreads(Work work, const support::Path& folder)
{
    for (int i = 0; i < 4; ++i) {
        std::thread(work, request(folder, "thread " + std::to_string(i))).detach();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

struct LastQuestion {
    KRT_PLX_Manager* manager = nullptr;

    ~LastQuestion()
    {
        if (manager != nullptr && !KRT_PLX_HasManager(manager)) {
            std::_Exit(1);
        }
    }
} lastQuestion;

} // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        return 2;
    }
    const std::string_view work = arguments[1];
    const support::Path folder = support::place(arguments[2]);
    if (work == "creating") {
        startThreads(createForEver, folder);
    } else if (work == "reading") {
        startThreads(readForEver, folder);
    } else if (work == "asking") {
        lastQuestion.manager = request(folder, "asking").create();
    }
    return 0;
}
