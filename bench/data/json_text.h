// Compact JSON text, written member by member.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace bench {

class JsonText {
public:
    JsonText& key(std::string_view name);

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    // Throws for a text that would need an escape: the benchmark's texts need none.
    void string(std::string_view text);
    void integer(std::int64_t value);
    // Always with a fraction or an exponent.
    void real(double value);
    void boolean(bool value);

    [[nodiscard]] const std::string& text() const { return text_; }

private:
    void open(char bracket);
    void close(char bracket);
    void separate();
    void quote(std::string_view text);

    std::string text_;
    bool needsComma_ = false;
};

} // namespace bench
