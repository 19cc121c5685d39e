// Loading the library, using it and closing it: afterwards it is really gone, with everything that
// it held. A leak checker watches these tests: memory that the library has not freed when it is
// closed is a leak.
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <exported_functions.h>

#ifdef _WIN32
#    include <windows.h>
#endif

#include "support/documents.h"
#include "support/files.h"
#include "support/imports_win32.h"
#include "support/text.h"
#include "unload/loaded_library.h"

namespace {

using support::pathText;
using support::text;

constexpr const char* notes = R"(, "notes": [
    {"lyric": "la", "phoneme": "l a", "pos": 0, "duration": 480, "number": 60, "velocity": 64,
     "dvqm": {"attack": {"compID": "component", "levelNames": ["one", "two"]}},
     "vibrato": {"type": 1, "duration": 240, "depths": [{"pos": 0, "value": 64}]}},
    {"lyric": "a lyric that is too long for any small buffer", "phoneme": "l a", "pos": 480,
     "duration": 480, "number": 62, "velocity": 64}],
    "controllers": [{"name": "dynamics", "events": [{"pos": 0, "value": 1}]}],
    "audioEffects": [{"id": "effect", "parameters": [{"name": "text", "value": "value"}]}])";

class Unload : public testing::Test {
protected:
    Unload()
    {
        const support::Path system = scratch.path() / "system";
        add(system / "a", support::propertyDocument("a"), support::midiDocument(notes));
        add(system / "b", "{", support::midiDocumentWithID("b", notes));
        add(system / "c", support::propertyDocument("c"), R"({"midi": {"notes": [)");
        add(system / "d", R"({"id": "\uDC00", "name": "d", "part": {"type": "midi"}})", "{");
        add(scratch.path() / "user" / "e", support::propertyDocument("e"),
            support::midiDocument(notes));
    }

    void TearDown() override { EXPECT_FALSE(isMapped()); }

    static void add(const support::Path& folder, std::string_view property, std::string_view data)
    {
        support::writeFile(folder / "property.json", property);
        support::writeFile(folder / "clip.kxclip", data);
    }

    KRT_PLX_Manager* create(const LoadedLibrary& library, std::uint32_t* code = nullptr)
    {
        return library.function<decltype(KRT_PLX_CreateManager)>("KRT_PLX_CreateManager")(
            text("host").c_str(), pathText(scratch.path() / "system").c_str(),
            pathText(scratch.path() / "user").c_str(), nullptr, 0, nullptr, 0, code);
    }

    support::ScratchFolder scratch;
};

// The functions that these tests use, looked up as a host does.
struct Functions {
    explicit Functions(const LoadedLibrary& library)
        : has(library.function<decltype(KRT_PLX_HasManager)>("KRT_PLX_HasManager")),
          destroy(library.function<decltype(KRT_PLX_Manager_destroy)>("KRT_PLX_Manager_destroy")),
          readAll(library.function<decltype(KRT_PLX_Manager_readAllClipFiles)>(
              "KRT_PLX_Manager_readAllClipFiles")),
          systemClip(
              library.function<decltype(KRT_PLX_Manager_systemClip)>("KRT_PLX_Manager_systemClip")),
          userClip(
              library.function<decltype(KRT_PLX_Manager_userClip)>("KRT_PLX_Manager_userClip")),
          readPart(library.function<decltype(KRT_PLX_Clip_readPart)>("KRT_PLX_Clip_readPart")),
          createEditor(library.function<decltype(KRT_PLX_UserClip_createPropertyEditor)>(
              "KRT_PLX_UserClip_createPropertyEditor")),
          setClipName(library.function<decltype(KRT_PLX_PropertyEditor_setClipName)>(
              "KRT_PLX_PropertyEditor_setClipName")),
          createMutableClip(library.function<decltype(KRT_PLX_Manager_createMutableClip)>(
              "KRT_PLX_Manager_createMutableClip")),
          createMidiPart(library.function<decltype(KRT_PLX_MutableClip_createMidiPart)>(
              "KRT_PLX_MutableClip_createMidiPart")),
          setVoiceBankID(library.function<decltype(KRT_PLX_MutableMidiPart_setVoiceBankID)>(
              "KRT_PLX_MutableMidiPart_setVoiceBankID")),
          setLangID(library.function<decltype(KRT_PLX_MutableMidiPart_setLangID)>(
              "KRT_PLX_MutableMidiPart_setLangID")),
          insertNote(library.function<decltype(KRT_PLX_MutableMidiPart_insertNote)>(
              "KRT_PLX_MutableMidiPart_insertNote")),
          save(library.function<decltype(KRT_PLX_MutableClip_save)>("KRT_PLX_MutableClip_save"))
    {
    }

    decltype(&KRT_PLX_HasManager) has;
    decltype(&KRT_PLX_Manager_destroy) destroy;
    decltype(&KRT_PLX_Manager_readAllClipFiles) readAll;
    decltype(&KRT_PLX_Manager_systemClip) systemClip;
    decltype(&KRT_PLX_Manager_userClip) userClip;
    decltype(&KRT_PLX_Clip_readPart) readPart;
    decltype(&KRT_PLX_UserClip_createPropertyEditor) createEditor;
    decltype(&KRT_PLX_PropertyEditor_setClipName) setClipName;
    decltype(&KRT_PLX_Manager_createMutableClip) createMutableClip;
    decltype(&KRT_PLX_MutableClip_createMidiPart) createMidiPart;
    decltype(&KRT_PLX_MutableMidiPart_setVoiceBankID) setVoiceBankID;
    decltype(&KRT_PLX_MutableMidiPart_setLangID) setLangID;
    decltype(&KRT_PLX_MutableMidiPart_insertNote) insertNote;
    decltype(&KRT_PLX_MutableClip_save) save;
};

// Reads all clips and the parts of the readable ones, some of them twice.
void browse(const Functions& plx, KRT_PLX_Manager* manager)
{
    EXPECT_EQ(plx.readAll(manager), KRT_PLX_RESULT_OK);
    int parts = 0;
    for (std::uint64_t i = 0; KRT_PLX_ClipBase* clip = plx.systemClip(manager, i); ++i) {
        parts += plx.readPart(clip) ? 1 : 0;
        parts += plx.readPart(clip) ? 1 : 0;
    }
    EXPECT_EQ(parts, 4); // "a" and "b" twice; the clip file of "c" is broken
    EXPECT_TRUE(plx.readPart(plx.userClip(manager, 0)));
}

// Leaves behind an editor, an editable clip and a saved clip.
void edit(const Functions& plx, KRT_PLX_Manager* manager)
{
    KRT_PLX_PropertyEditor* editor = plx.createEditor(plx.userClip(manager, 0));
    EXPECT_TRUE(plx.setClipName(editor, text("another name").c_str()));

    KRT_PLX_ClipBase* clip = plx.createMutableClip(manager);
    KRT_PLX_PartBase* part = plx.createMidiPart(clip);
    EXPECT_TRUE(plx.setVoiceBankID(part, text("ABCDEFGHIJKLMNOP").c_str()));
    EXPECT_TRUE(plx.setLangID(part, 1));
    EXPECT_NE(plx.insertNote(part, 0, 480, text("la").c_str(), text("l a").c_str(), 1), nullptr);
    EXPECT_NE(plx.save(clip, text("saved").c_str(), true, nullptr), nullptr);
}

TEST_F(Unload, FindsEveryExportedFunctionByItsName)
{
    const LoadedLibrary library;

    EXPECT_TRUE(isMapped());
    for (const ExportedFunction& function : exportedFunctions) {
        EXPECT_NE(library.find(function.name), nullptr) << function.name;
    }
    EXPECT_EQ(library.find("KRT_PLX_NoSuchFunction"), nullptr);
}

TEST_F(Unload, IsPossibleWithoutAnyUse)
{
    const LoadedLibrary library;
}

TEST_F(Unload, IsPossibleAfterUse)
{
    const LoadedLibrary library;
    const Functions plx(library);
    KRT_PLX_Manager* manager = create(library);

    browse(plx, manager);
    edit(plx, manager);
    browse(plx, manager);

    EXPECT_TRUE(plx.destroy(manager));
}

TEST_F(Unload, DestroysTheManagers)
{
    const LoadedLibrary library;
    const Functions plx(library);
    KRT_PLX_Manager* manager = create(library);

    browse(plx, manager);
    edit(plx, manager);
}

TEST_F(Unload, ForgetsTheManagers)
{
    KRT_PLX_Manager* old = nullptr;
    {
        const LoadedLibrary library;
        old = create(library);
        EXPECT_TRUE(Functions(library).has(old));
    }
    ASSERT_FALSE(isMapped());

    const LoadedLibrary library;
    EXPECT_FALSE(Functions(library).has(old));
    std::uint32_t code = 4711;
    EXPECT_NE(create(library, &code), nullptr);
    EXPECT_EQ(code, KRT_PLX_RESULT_OK);
}

TEST_F(Unload, LeavesAFreshLibraryThatKnowsNoManager)
{
    const LoadedLibrary library;
    const Functions plx(library);
    auto* nowhere = reinterpret_cast<KRT_PLX_Manager*>(std::uintptr_t{8});

    EXPECT_FALSE(plx.has(nowhere));
    EXPECT_TRUE(plx.destroy(nowhere));
}

TEST_F(Unload, FollowsAFirstUseByManyThreads)
{
    const LoadedLibrary library;
    const Functions plx(library);
    std::atomic<bool> started = false;
    std::vector<KRT_PLX_Manager*> managers(8);
    std::vector<std::thread> threads;
    for (KRT_PLX_Manager*& manager : managers) {
        threads.emplace_back([&] {
            while (!started) {
                std::this_thread::yield();
            }
            manager = create(library);
        });
    }
    started = true;
    for (std::thread& thread : threads) {
        thread.join();
    }

    EXPECT_TRUE(plx.has(managers[0]));
    for (KRT_PLX_Manager* manager : managers) {
        EXPECT_EQ(manager, managers[0]);
    }
}

TEST_F(Unload, CanBeRepeated)
{
    for (int round = 0; round < 20; ++round) {
        {
            const LoadedLibrary library;
            browse(Functions(library), create(library));
        }
        ASSERT_FALSE(isMapped()) << round;
    }
}

#ifdef _WIN32
// Resources of which a process has a limited number.
struct Stock {
    DWORD handles = 0;
    DWORD nextSlotOfThreads = 0;
    DWORD nextSlotOfFibers = 0;

    static Stock take()
    {
        Stock stock;
        GetProcessHandleCount(GetCurrentProcess(), &stock.handles);
        stock.nextSlotOfThreads = TlsAlloc();
        TlsFree(stock.nextSlotOfThreads);
        stock.nextSlotOfFibers = FlsAlloc(nullptr);
        FlsFree(stock.nextSlotOfFibers);
        return stock;
    }
};

// A thread that still runs when the library that it has used is gone.
class LastingThread {
public:
    LastingThread() : thread_([this] { run(); }) {}
    LastingThread(const LastingThread&) = delete;
    LastingThread& operator=(const LastingThread&) = delete;
    ~LastingThread()
    {
        isOver_ = true;
        thread_.join();
    }

    void call(const std::function<void()>& work)
    {
        work_ = &work;
        while (work_ != nullptr) {
            std::this_thread::yield();
        }
    }

private:
    void run()
    {
        while (!isOver_) {
            if (const auto* const work = work_.load()) {
                (*work)();
                work_ = nullptr;
            }
            std::this_thread::yield();
        }
    }

    std::atomic<const std::function<void()>*> work_ = nullptr;
    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

TEST_F(Unload, LeaksNothingHoweverOftenItIsRepeated)
{
    LastingThread other;
    const auto useOnce = [&] {
        const LoadedLibrary library;
        KRT_PLX_Manager* const manager = create(library);
        browse(Functions(library), manager);
        other.call([&] { browse(Functions(library), manager); });
        std::thread([&] { browse(Functions(library), manager); }).join();
    };
    useOnce();
    const Stock before = Stock::take();
    for (int round = 0; round < 50; ++round) {
        useOnce();
    }
    const Stock after = Stock::take();
    EXPECT_EQ(after.handles, before.handles);
    EXPECT_EQ(after.nextSlotOfThreads, before.nextSlotOfThreads);
    EXPECT_EQ(after.nextSlotOfFibers, before.nextSlotOfFibers);
}

void* noMemory(std::size_t)
{
    return nullptr;
}

// The runtime's data about exceptions exists also for threads that are older than the library.
TEST_F(Unload, FollowsAnExceptionOfAThreadThatWasThereBefore)
{
    LastingThread older;
    const LoadedLibrary library;
    const HMODULE module = GetModuleHandleW(L"krt_plx.dll");
    void* const memory =
        support::replaceImport(module, "malloc", reinterpret_cast<void*>(&noMemory));
    older.call([&] { EXPECT_EQ(create(library), nullptr); });
    support::replaceImport(module, "malloc", memory);
    older.call([&] { EXPECT_NE(create(library), nullptr); });
}
#endif

TEST_F(Unload, WaitsForTheLastOfTwoUsers)
{
    KRT_PLX_Manager* manager = nullptr;
    std::optional<LoadedLibrary> first;
    first.emplace();
    const LoadedLibrary second;
    manager = create(*first);

    first.reset();

    EXPECT_TRUE(isMapped());
    EXPECT_TRUE(Functions(second).has(manager));
    browse(Functions(second), manager);
}

TEST_F(Unload, DoesNotWaitForAThreadThatUsedTheLibrary)
{
    std::atomic<bool> used = false;
    std::atomic<bool> over = false;
    std::thread thread;
    {
        const LoadedLibrary library;
        KRT_PLX_Manager* manager = create(library);
        thread = std::thread([&] {
            browse(Functions(library), manager);
            used = true;
            while (!over) {
                std::this_thread::yield();
            }
        });
        while (!used) {
            std::this_thread::yield();
        }
    }
    EXPECT_FALSE(isMapped());
    over = true;
    thread.join();
}

} // namespace
