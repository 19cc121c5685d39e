#include "format/row_writer.h"

namespace Korvel::CANTORIS::PLX::format {

void SparseOutput::show()
{
    for (const Opening& opening : waiting_) {
        if (!opening.key.empty()) {
            out_.key(opening.key);
        }
        if (opening.isObject) {
            out_.beginObject();
        } else {
            out_.beginArray();
        }
        shown_.push_back(opening.isObject);
    }
    waiting_.clear();
}

Output& SparseOutput::member(std::string_view key)
{
    if (!waiting_.empty()) {
        show();
    }
    out_.key(key);
    return out_;
}

Output& SparseOutput::element()
{
    if (!waiting_.empty()) {
        show();
    }
    return out_;
}

bool SparseOutput::close()
{
    if (!waiting_.empty()) {
        waiting_.pop_back();
        return false;
    }
    if (shown_.back()) {
        out_.endObject();
    } else {
        out_.endArray();
    }
    shown_.pop_back();
    return true;
}

} // namespace Korvel::CANTORIS::PLX::format
