// Editing and saving on full disks: with every number of free blocks, and every limit of the file
// size.

#include <algorithm>
#include <fstream>
#include <map>

#include <gtest/gtest.h>

#include "figures.h"
#include "loop_disk.h"
#include "support/full_disk.h"
#include "works.h"

namespace {

using support::Path;
using support::text;
using support::Tree;

constexpr std::size_t longName = 20000;

// Uses up all free space, and frees it again one block after another.
class Filler {
public:
    explicit Filler(const Path& file) : file_(file)
    {
        const std::string block(blockSize, 'f');
        std::ofstream stream(file, std::ios::binary);
        while (stream.write(block.data(), blockSize) && stream.flush()) {
            size_ += blockSize;
        }
        stream.close();
        std::filesystem::resize_file(file, size_);
    }

    [[nodiscard]] bool isEmpty() const { return size_ == 0; }

    void giveBlockBack()
    {
        size_ -= std::min(size_, blockSize);
        std::filesystem::resize_file(file_, size_);
    }

private:
    static constexpr std::uintmax_t blockSize = 4096;

    Path file_;
    std::uintmax_t size_ = 0;
};

// A manager with a clip, and an editor of it that makes its document longer.
class FullDiskTest : public testing::Test {
protected:
    void openEditor(std::size_t nameLength)
    {
        world_.destroyManager();
        world_.scan();
        world_.clip = world_.userClip("Midi");
        world_.editor = KRT_PLX_UserClip_createPropertyEditor(world_.clip);
        const support::Text name = text(std::string(nameLength, 'n'));
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(world_.editor, name.c_str()));
        document_ = world_.folder(world_.folderOf(world_.clip)) / "property.json";
    }

    // The clip folders, without the file that fills the disk.
    [[nodiscard]] std::map<Path, Tree> disk() const
    {
        std::map<Path, Tree> clips;
        for (const auto& entry : std::filesystem::directory_iterator(world_.folder("user"))) {
            if (entry.is_directory() && entry.path().filename() != "lost+found") {
                clips[entry.path()] = support::treeOf(entry);
            }
        }
        return clips;
    }

    // Checks that true means the new document is there, and false that nothing has changed.
    bool edit()
    {
        const auto before = disk();
        const std::string name = support::utf8(KRT_PLX_Clip_name(world_.clip));
        const bool done = KRT_PLX_PropertyEditor_save(world_.editor);
        if (done) {
            EXPECT_EQ(faults::describeListed(world_.manager),
                      world_.whatAnotherHostSees(faults::Parts::unread));
            EXPECT_NE(support::utf8(KRT_PLX_Clip_name(world_.clip)), name);
        } else {
            EXPECT_EQ(disk(), before);
            EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(world_.clip)), name);
            faults::count("edits on a full disk that changed nothing");
        }
        return done;
    }

    // Whether it could be saved; checks that otherwise nothing is left.
    bool save()
    {
        const auto before = disk();
        KRT_PLX_ClipBase* const clip =
            faults::build(world_.manager, faults::audioOperations(), world_.wave());
        const support::SaveResult result = support::save(clip, std::string(longName, 's'));
        if (result.clip == nullptr) {
            EXPECT_EQ(disk(), before) << "code " << result.code;
            faults::count("saves on a full disk that left nothing");
        }
        return result.clip != nullptr;
    }

    // With no free block, with one, and so on until both succeed.
    void fillAndChange()
    {
        openEditor(longName);
        Filler filler(world_.folder("user") / "filler");
        bool isEdited = edit();
        bool isSaved = save();
        EXPECT_FALSE(isEdited || isSaved);
        while (!(isEdited && isSaved) && !HasFailure()) {
            ASSERT_FALSE(filler.isEmpty());
            filler.giveBlockBack();
            isEdited = isEdited || edit();
            isSaved = isSaved || save();
        }
    }

    faults::World world_;
    Path document_;
};

TEST_F(FullDiskTest, FilesThatMayNotGrow)
{
    const auto step = static_cast<std::size_t>(faults::every(37));
    openEditor(1000);
    const std::size_t size = support::readFile(document_).size();
    bool done = false;
    for (std::size_t limit = size; !done && !HasFailure(); limit += step) {
        SCOPED_TRACE(std::to_string(limit) + " bytes");
        const support::FileSizeLimit limited(limit);
        ASSERT_TRUE(limited);
        done = edit();
        ASSERT_LT(limit, 3000);
    }
}

TEST_F(FullDiskTest, AMissingDocument)
{
    openEditor(1000);
    std::filesystem::remove(document_);
    for (const std::size_t limit : {0, 1, 500, 1000}) {
        const support::FileSizeLimit limited(limit);
        EXPECT_FALSE(edit()) << limit << " bytes";
    }
    EXPECT_TRUE(edit());
}

TEST_F(FullDiskTest, AFileSystemInMemory)
{
    const Path aside = world_.folder("aside");
    std::filesystem::rename(world_.folder("user"), aside);
    const support::SmallDisk disk(world_.folder("user"), {64, 1000});
    if (!disk) {
        GTEST_SKIP() << "this process may not mount a file system";
    }
    std::filesystem::copy(aside, world_.folder("user"), std::filesystem::copy_options::recursive);
    fillAndChange();
    world_.destroyManager();
}

// On a disk with these mount options.
class FullFileSystemTest : public FullDiskTest, public testing::WithParamInterface<const char*> {};

TEST_P(FullFileSystemTest, OnADisk)
{
    const faults::LoopDisk disk(world_.folder("user"), world_.wave().replace_filename("image"),
                                GetParam());
    if (!disk.missing().empty()) {
        GTEST_SKIP() << disk.missing();
    }
    fillAndChange();
    world_.destroyManager();
}

// In the test command there is no such disk.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FullFileSystemTest);
INSTANTIATE_TEST_SUITE_P(Options, FullFileSystemTest,
                         testing::ValuesIn(faults::isExhaustive()
                                               ? std::vector<const char*>{"", ",noauto_da_alloc"}
                                               : std::vector<const char*>()));

} // namespace
