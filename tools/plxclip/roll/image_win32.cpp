#ifdef _WIN32

#    include "commands.h"
#    include "roll/image.h"

namespace plxclip::roll {

namespace {

[[noreturn]] void refuse()
{
    throw Failure("PNG and PDF cannot be made on Windows; draw an SVG with --svg, which a browser "
                  "shows and prints");
}

} // namespace

std::string pngOf(const Picture& /*picture*/)
{
    refuse();
}

std::string pdfOf(const Picture& /*picture*/)
{
    refuse();
}

} // namespace plxclip::roll

#endif
