// The example clips: what the library lists and reads is valid, and what is wrong with the others is
// what the schemas say, as far as a schema can know.
#include <set>

#include "schema.h"
#include "support/host.h"
#include "support/saving.h"

using schema::Document;
using schema::Schema;
using support::Path;

namespace {

Path libraryFolder()
{
    return support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) / "examples" / "library";
}

// Some stand in other encodings; null where the file is missing or no JSON.
Document readDocument(const Path& file)
{
    using Stream = rapidjson::AutoUTFInputStream<unsigned, rapidjson::MemoryStream>;
    const std::string bytes = exists(file) ? support::readFile(file) : std::string();
    rapidjson::MemoryStream memory(bytes.data(), bytes.size());
    Stream stream(memory);
    Document document;
    document.ParseStream<rapidjson::kParseDefaultFlags, rapidjson::AutoUTF<unsigned>>(stream);
    return document.HasParseError() ? Document() : std::move(document);
}

Path fileOf(KRT_PLX_ClipBase* clip)
{
    return support::place(support::replaced(support::utf8(KRT_PLX_Clip_path(clip)), "\\", "/"));
}

class ExampleLibraryTest : public testing::Test {
protected:
    ExampleLibraryTest()
    {
        EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(manager_.get()), KRT_PLX_RESULT_OK);
    }

    void expectValid(KRT_PLX_ClipBase* clip)
    {
        const Path file = fileOf(clip);
        SCOPED_TRACE(file.filename());
        const Document properties = readDocument(file.parent_path() / "property.json");
        const bool isAlone = !properties.IsObject();
        if (!isAlone) {
            EXPECT_EQ(propertySchema_.complaint(properties), "");
        }
        const Document data = readDocument(file);
        const std::string complaint = (isAlone ? standaloneSchema_ : dataSchema_).complaint(data);
        const bool reads = KRT_PLX_Clip_readPart(clip);
        EXPECT_EQ(complaint.empty(), reads || lacksItsWaveFile(file)) << complaint;
        ++(isAlone ? alone_ : besideProperties_);
    }

    static bool lacksItsWaveFile(const Path& file) { return file.filename() == "Lost Loop.kxclip"; }

    const Schema propertySchema_{"property"};
    const Schema dataSchema_{"data"};
    const Schema standaloneSchema_{"standalone"};
    int alone_ = 0;
    int besideProperties_ = 0;

    support::ScratchFolder scratch_;
    // As further user directory: the examples stay as they are, whatever becomes of them.
    const support::OwnedManager manager_ = support::createManager(
        {libraryFolder() / "system", scratch_.path() / "user", {}, {libraryFolder() / "user"}});
};

TEST_F(ExampleLibraryTest, WhatIsListedIsValid)
{
    for (std::uint64_t i = 0; i < support::systemClipCount(manager_.get()); ++i) {
        expectValid(KRT_PLX_Manager_systemClip(manager_.get(), i));
    }
    for (std::uint64_t i = 0; i < support::userClipCount(manager_.get()); ++i) {
        expectValid(KRT_PLX_Manager_userClip(manager_.get(), i));
    }
    EXPECT_EQ(alone_, 2);
    EXPECT_EQ(besideProperties_, 30);
}

TEST_F(ExampleLibraryTest, WhatIsNotListedIsRefused)
{
    const Path wild = libraryFolder() / "system" / "wild";
    const Document saved = readDocument(wild / "saved-without-property-json" /
                                        "5d7e3b90-16c8-4a2f-b4d1-8c0f92e6a735.kxclip");
    EXPECT_EQ(dataSchema_.complaint(saved), "");
    EXPECT_EQ(standaloneSchema_.complaint(saved), " breaks \"required\" of ");
    EXPECT_TRUE(readDocument(wild / "trailing-comma" / "Hot Cross Buns.kxclip").IsNull());
    EXPECT_TRUE(readDocument(wild / "empty-file" / "Nothing.kxclip").IsNull());
}

} // namespace
