#include "support/documents.h"

namespace support {
namespace {

std::string midiPart(std::string_view members)
{
    std::string part = R"("midi": {"duration": 1920, )";
    part += R"("voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 1})";
    part += members;
    return part + "}";
}

std::string identity(std::string_view id)
{
    const std::string name(id);
    return R"("id": ")" + name + R"(", "name": "Name of )" + name + "\"";
}

} // namespace

std::string propertyDocument(std::string_view id, std::string_view type, std::string_view members)
{
    std::string document = "{" + identity(id) + R"(, "part": {"type": ")";
    document += type;
    document += "\"}";
    document += members;
    return document + "}";
}

std::string midiDocument(std::string_view partMembers)
{
    return "{" + midiPart(partMembers) + "}";
}

std::string midiDocumentWithID(std::string_view id, std::string_view partMembers)
{
    return "{" + identity(id) + ", " + midiPart(partMembers) + "}";
}

std::string midiAiDocument(std::string_view partMembers)
{
    std::string document = R"({"midiAi": {"duration": 1920, )";
    document += R"("aiVoice": {"compID": "ABCDEFGHIJKLMNOP", "langIDs": [{"langID": 1}]})";
    document += partMembers;
    return document + "}}";
}

std::string audioDocument(std::string_view waveFileName, std::string_view partMembers)
{
    std::string document = R"({"audio": {"wavFileName": ")";
    document += waveFileName;
    document += "\"";
    document += partMembers;
    return document + "}}";
}

} // namespace support
