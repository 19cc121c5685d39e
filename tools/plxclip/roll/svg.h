// Writing SVG: one element after another, with numbers in as few digits as are visible.
#pragma once

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

namespace plxclip::roll {

struct Place {
    double x;
    double y;
};

struct Box {
    double x;
    double y;
    double width;
    double height;
};

inline bool overlap(const Box& a, const Box& b)
{
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

struct Picture {
    std::string svg;
    double width;
    double height;
};

// Text for an element or an attribute. Characters that XML does not allow become U+FFFD.
std::string escaped(std::string_view text);

class Svg {
public:
    Svg(double width, double height);

    // `attributes` are written unchanged.
    void rectangle(const Box& box, std::string_view styleClass, std::string_view attributes = {});
    void line(Place from, Place to, std::string_view styleClass);
    void path(const std::vector<Place>& points, std::string_view styleClass, bool isClosed = false);
    void text(Place place, std::string_view styleClass, std::string_view content,
              std::string_view attributes = {});

    void openGroup(std::string_view styleClass, std::string_view attributes = {});
    void closeGroup();

    // The text that a viewer shows as a tooltip of the group.
    void title(std::string_view content);

    // The whole picture; nothing can be added afterwards.
    Picture finish();

private:
    double width;
    double height;
    std::string output;
};

} // namespace plxclip::roll
