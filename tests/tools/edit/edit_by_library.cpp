// Sets the tempo of all user clips with the library's property editor, as a host would.
//
// edit_by_library FOLDER EMPTY-FOLDER TEMPO
#include <cstdio>
#include <cstdlib>

#include <korvel/plx.hpp>

namespace plx = korvel::plx;

namespace {

bool edit(plx::UserClip clip, std::uint32_t tempo)
{
    const plx::PropertyEditor editor = clip.createPropertyEditor();
    const bool isSaved = editor.fill(clip) && editor.setPartTempo(tempo) && editor.save();
    clip.destroyPropertyEditor(editor);
    return isSaved;
}

std::size_t editAll(plx::Manager manager, std::uint32_t tempo)
{
    std::size_t count = 0;
    for (const plx::UserClip clip : manager.userClips()) {
        count += edit(clip, tempo) ? 1 : 0;
    }
    return count;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        return 2;
    }
    const plx::Manager manager =
        plx::createManager(plx::fromUtf8("edit"), plx::fromUtf8(argv[2]), plx::fromUtf8(argv[1]))
            .manager;
    if (!manager || manager.readAllClipFiles() != plx::Result::ok) {
        return 1;
    }
    const auto tempo = static_cast<std::uint32_t>(std::strtoul(argv[3], nullptr, 10));
    std::printf("%zu\n", editAll(manager, tempo));
    manager.destroy();
    return 0;
}
