#include "format/clip_writer.h"

#include "format/keys.h"
#include "format/row_writer.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

class PropertyWriter : public RowWriter<PropertyWriter> {
public:
    explicit PropertyWriter(Output& out) : RowWriter(out) {}

    void document(const WrittenProperties& properties)
    {
        object(As<keys::PropertyDocument>(), properties);
    }

private:
    friend RowWriter;

    void write(As<keys::PropertyDocument>, const WrittenProperties& properties)
    {
        rows<keys::PropertyDocument>(properties);
    }

    void write(As<keys::FilterTable>, const WrittenProperties& properties)
    {
        rows<keys::FilterTable>(properties.tags);
    }

    // Audio parts have neither key nor tempo.
    void write(As<keys::PartHeader>, const WrittenProperties& properties)
    {
        if (part_type::isMidi(properties.clip.partType())) {
            rows<keys::PartHeader>(properties.clip);
        } else {
            rows<keys::AudioHeader>(properties.clip);
        }
    }
};

} // namespace

void writeProperties(Output& out, const ClipBase& clip, const Filter& tags, StringView id,
                     StringView name)
{
    PropertyWriter(out).document({clip, tags, id, name});
}

} // namespace Korvel::CANTORIS::PLX::format
