#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "check/report.h"

namespace plxclip::check {

namespace {

bool isLoss(const Finding& finding)
{
    return finding.effect == Effect::dropped || finding.effect == Effect::ignored;
}

using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void writeText(Writer& out, const char* key, std::string_view text)
{
    out.Key(key);
    out.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void writeFlag(Writer& out, const char* key, bool value)
{
    out.Key(key);
    out.Bool(value);
}

void writeNumber(Writer& out, const char* key, std::size_t number)
{
    out.Key(key);
    out.Uint64(number);
}

void writeFinding(Writer& out, const Finding& finding)
{
    out.StartObject();
    writeText(out, "effect", nameOf(finding.effect));
    writeText(out, "reason", nameOf(finding.reason));
    writeText(out, "document", finding.document.empty() ? "clip" : finding.document);
    writeText(out, "pointer", finding.pointer);
    if (finding.position.line != 0) {
        writeNumber(out, "line", finding.position.line);
        writeNumber(out, "column", finding.position.column);
    }
    writeText(out, "message", finding.message);
    out.EndObject();
}

void writeClip(Writer& out, const ClipReport& clip)
{
    out.StartObject();
    writeText(out, "path", clip.path);
    writeText(out, "kind", clip.isUserClip ? "user" : "system");
    writeFlag(out, "listed", clip.isListed);
    if (clip.isListed) {
        writeFlag(out, "partReads", clip.partReads);
        writeText(out, "id", clip.id);
        writeText(out, "name", clip.name);
    }
    out.Key("findings");
    out.StartArray();
    for (const Finding& finding : clip.findings) {
        writeFinding(out, finding);
    }
    out.EndArray();
    out.EndObject();
}

void writeSummary(Writer& out, const Summary& summary)
{
    out.StartObject();
    writeNumber(out, "files", summary.files);
    writeNumber(out, "listed", summary.listed);
    writeNumber(out, "notListed", summary.notListed);
    writeNumber(out, "unreadParts", summary.unreadParts);
    writeNumber(out, "losses", summary.losses);
    writeNumber(out, "noted", summary.noted);
    writeNumber(out, "unexplained", summary.unexplained);
    out.EndObject();
}

} // namespace

Summary summaryOf(const std::vector<ClipReport>& clips)
{
    Summary summary;
    for (const ClipReport& clip : clips) {
        ++summary.files;
        ++(clip.isListed ? summary.listed : summary.notListed);
        summary.unreadParts += clip.isListed && !clip.partReads ? 1U : 0U;
        for (const Finding& finding : clip.findings) {
            summary.losses += isLoss(finding) ? 1U : 0U;
            summary.unexplained += finding.reason == Reason::unexplained ? 1U : 0U;
            summary.noted += finding.effect == Effect::noted ? 1U : 0U;
            summary.isFine = summary.isFine && finding.effect == Effect::noted;
        }
    }
    return summary;
}

std::string jsonOf(const std::vector<ClipReport>& clips)
{
    rapidjson::StringBuffer buffer;
    Writer out(buffer);
    out.SetIndent(' ', 2);
    out.StartObject();
    out.Key("clips");
    out.StartArray();
    for (const ClipReport& clip : clips) {
        writeClip(out, clip);
    }
    out.EndArray();
    out.Key("summary");
    writeSummary(out, summaryOf(clips));
    out.EndObject();
    return std::string(buffer.GetString(), buffer.GetSize()) + '\n';
}

} // namespace plxclip::check
