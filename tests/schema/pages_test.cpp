// The documents that the pages show are valid, and the library takes all of them.
#include "schema.h"
#include "support/reading.h"
#include "tally.h"

using schema::Document;
using schema::Schema;
using schema::tallyOf;

namespace {

std::vector<Document> documentsOf(const char* page)
{
    const std::string text =
        support::readFile(support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) / page);
    constexpr std::string_view fence = "\n```json\n";
    std::vector<Document> documents;
    for (std::size_t at = text.find(fence); at != std::string::npos; at = text.find(fence, at)) {
        at += fence.size();
        documents.push_back(schema::parse(text.substr(at, text.find("\n```\n", at) - at)));
    }
    return documents;
}

class PagesTest : public ReaderTest {
protected:
    void expectGood(const Document& document)
    {
        ASSERT_TRUE(document.IsObject());
        const std::string text = schema::textOf(document);
        if (document.HasMember("part")) {
            EXPECT_EQ(Schema("property").complaint(document), "") << text;
            EXPECT_NE(readProperties(text), nullptr) << text;
        } else {
            EXPECT_EQ(Schema("data").complaint(document), "") << text;
            EXPECT_NE(readPart(text), nullptr) << text;
            EXPECT_EQ(tallyOf(support::modelOfRead(clipOfPart()).part), tallyOf(document)) << text;
        }
    }

    void expectGoodDocuments(const char* page, std::size_t number)
    {
        const std::vector<Document> documents = documentsOf(page);
        EXPECT_EQ(documents.size(), number);
        for (const Document& document : documents) {
            expectGood(document);
        }
    }
};

TEST_F(PagesTest, Readme)
{
    expectGoodDocuments("README.md", 2);
}

TEST_F(PagesTest, ClipFormat)
{
    expectGoodDocuments("docs/clip-format.md", 2);
}

// What an editor of text needs is a text by the schemas; the library ignores it, whatever it is.
TEST_F(PagesTest, AReferenceToASchema)
{
    const std::string members =
        R"("id":"a","name":"a","part":{"type":"midi"},)"
        R"("midi":{"duration":1,"voice":{"compID":"0123456789ABCDEF","langID":0}}})";
    for (const auto& [value, isGood] : {std::pair(R"("s")", true), std::pair("7", false)}) {
        const std::string text = std::string(R"({"$schema":)") + value + "," + members;
        for (const char* const name : {"property", "data", "standalone"}) {
            EXPECT_EQ(Schema(name).accepts(schema::parse(text)), isGood) << name << " " << value;
        }
        EXPECT_NE(readProperties(text), nullptr);
        EXPECT_NE(readPart(text), nullptr);
    }
}

} // namespace
