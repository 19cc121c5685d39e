// What the library's reader tells of a document, without what does not matter any more.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "format/losses.h"

namespace plxclip::check {

namespace own = Korvel::CANTORIS::PLX;
namespace format = own::format;

struct Heard {
    format::Loss loss;
    std::string path;  // of the value, also of one that is missing
    std::string owner; // of which object's loss this may be the cause
    bool isCause;
};

// Of an object or a document that is lost, only why it is lost is kept: what else is wrong with it loses nothing more.
class Hearing final : public format::Listener {
public:
    void lost(const format::Loss& loss) override;
    void refused(const format::Defect& told) override;
    void took(const format::Taken& told) override { taken.push_back(told); }

    std::vector<Heard> losses;
    std::vector<format::Taken> taken;
    std::optional<format::Defect> defect;

private:
    std::vector<Heard>::iterator firstWithin(std::string_view object);
    void lostObject(const format::Loss& object);
    void forget(std::string_view outer, std::string_view lost);
};

// Whether the path leads into what stands at the outer one.
bool isBelow(std::string_view path, std::string_view outer);

} // namespace plxclip::check
