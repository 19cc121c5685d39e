// Pipes, sockets and devices where files should be: they are neither opened, which could wait for ever,
// nor written. Folders of Windows hold no such things.
#ifndef _WIN32

#    include <cstring>

#    include <sys/socket.h>
#    include <sys/un.h>
#    include <unistd.h>

#    include "support/saving.h"
#    include "support/temp_dir.h"

using support::Path;
using support::pathText;
using support::text;
using testing::ElementsAre;

namespace {

class NeighbourSpecial : public HostTest {
protected:
    [[nodiscard]] Path folder() const { return userFolder() / "one"; }
    [[nodiscard]] Path document() const { return folder() / "property.json"; }
    [[nodiscard]] Path clipFile() const { return folder() / "clip.kxclip"; }

    static void replaceByPipe(const Path& file)
    {
        std::filesystem::remove(file);
        ASSERT_TRUE(support::makePipe(pathText(file)));
    }

    KRT_PLX_ClipBase* addAndRead()
    {
        support::addClip(folder(), support::propertyDocument("ID"), support::midiDocument());
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        return userClip(0);
    }
};

TEST_F(NeighbourSpecial, PipesAreNoDocuments)
{
    support::addClip(userFolder() / "good", support::propertyDocument("good"), "{}");
    support::addClip(userFolder() / "data", std::nullopt, support::midiDocumentWithID("data"));
    ASSERT_TRUE(support::makePipe(pathText(userFolder() / "data" / "property.json")));
    ASSERT_TRUE(support::makePipe(pathText(userFolder() / "x.kxclip")));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), testing::UnorderedElementsAre("good", "data"));
}

TEST_F(NeighbourSpecial, APipeInPlaceOfTheClipFileIsNotRead)
{
    KRT_PLX_ClipBase* const clip = addAndRead();
    replaceByPipe(clipFile());
    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));
}

TEST_F(NeighbourSpecial, APipeInPlaceOfThePropertyDocumentIsNotWritten)
{
    KRT_PLX_ClipBase* const clip = addAndRead();
    replaceByPipe(document());
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    ASSERT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
    EXPECT_FALSE(KRT_PLX_PropertyEditor_save(editor));
    EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(clip)), "Name of ID");
}

TEST_F(NeighbourSpecial, PipesInPlaceOfFilesAreRemoved)
{
    KRT_PLX_ClipBase* const clip = addAndRead();
    replaceByPipe(document());
    replaceByPipe(clipFile());
    EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
    EXPECT_FALSE(std::filesystem::exists(folder()));
}

TEST_F(NeighbourSpecial, APipeIsNoWaveFile)
{
    ASSERT_TRUE(support::makePipe(pathText(scratch() / "take.wav")));
    KRT_PLX_ClipBase* const built = createMutableClip();
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(built);
    KRT_PLX_MutableAudioPart_setWavFilePath(part, pathText(scratch() / "take.wav").c_str());
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_WAVE_FILE_MISSING);
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

TEST_F(NeighbourSpecial, ADeviceWithoutEndIsNoWaveFile)
{
    KRT_PLX_ClipBase* const built = createMutableClip();
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(built);
    KRT_PLX_MutableAudioPart_setWavFilePath(part, text(R"(\dev\zero)").c_str());
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_WAVE_FILE_MISSING);
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

class Socket {
public:
    explicit Socket(const Path& path) : number_(::socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        EXPECT_LT(path.native().size(), sizeof address.sun_path);
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(number_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket() { ::close(number_); }

private:
    int number_;
};

TEST_F(NeighbourSpecial, SocketsAreNoDocuments)
{
    support::addClip(userFolder() / "a", std::nullopt, support::midiDocumentWithID("data"));
    const Socket properties(userFolder() / "a" / "property.json");
    const Socket clip(userFolder() / "x.kxclip");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), ElementsAre("data"));
}
} // namespace

#endif
