#ifndef _WIN32

#    include "roll/image.h"

#    include <cmath>
#    include <memory>

#    include <dlfcn.h>

#    include "commands.h"

namespace plxclip::roll {

namespace {

// What librsvg and cairo declare, as far as it is used here.
struct Rectangle {
    double x;
    double y;
    double width;
    double height;
};
struct Handle;
struct Surface;
struct Context;
using Write = int (*)(void* output, const unsigned char* bytes, unsigned size);

constexpr int successful = 0;
constexpr int argb = 0;

// The functions of librsvg, and those of the libraries that it brings with it.
class Renderer {
public:
    Renderer()
    {
        // It stays loaded: the libraries below it cannot be unloaded.
        void* const library = dlopen("librsvg-2.so.2", RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr || !(find(library, newFromData, "rsvg_handle_new_from_data") &&
                                    find(library, render, "rsvg_handle_render_document") &&
                                    find(library, unref, "g_object_unref") &&
                                    find(library, newImage, "cairo_image_surface_create") &&
                                    find(library, newPdf, "cairo_pdf_surface_create_for_stream") &&
                                    find(library, newContext, "cairo_create") &&
                                    find(library, destroyContext, "cairo_destroy") &&
                                    find(library, finish, "cairo_surface_finish") &&
                                    find(library, status, "cairo_surface_status") &&
                                    find(library, destroySurface, "cairo_surface_destroy") &&
                                    find(library, writePng, "cairo_surface_write_to_png_stream"))) {
            throw Failure(
                "a PNG or a PDF needs librsvg 2.46 or later, which is not there (on Debian "
                "the package librsvg2-2); draw an SVG with --svg instead");
        }
    }

    Handle* (*newFromData)(const unsigned char* data, std::size_t size, void** error) = nullptr;
    int (*render)(Handle*, Context*, const Rectangle* place, void** error) = nullptr;
    void (*unref)(void*) = nullptr;
    Surface* (*newImage)(int format, int width, int height) = nullptr;
    Surface* (*newPdf)(Write, void* output, double width, double height) = nullptr;
    Context* (*newContext)(Surface*) = nullptr;
    void (*destroyContext)(Context*) = nullptr;
    void (*finish)(Surface*) = nullptr;
    int (*status)(Surface*) = nullptr;
    void (*destroySurface)(Surface*) = nullptr;
    int (*writePng)(Surface*, Write, void* output) = nullptr;

private:
    template <typename Function>
    static bool find(void* library, Function& function, const char* name)
    {
        function = reinterpret_cast<Function>(dlsym(library, name));
        return function != nullptr;
    }
};

template <typename Object, typename Deleter>
std::unique_ptr<Object, Deleter> owned(Object* object, Deleter deleter)
{
    return {object, deleter};
}

// cairo calls it, so that no exception may leave it.
int append(void* output, const unsigned char* bytes, unsigned size) noexcept
{
    static_cast<std::string*>(output)->append(reinterpret_cast<const char*>(bytes), size);
    return successful;
}

void require(bool isDone)
{
    if (!isDone) {
        throw Failure("the picture is too large for this kind of file; choose some bars, such as "
                      "--bars 1-16, or draw an SVG with --svg");
    }
}

void draw(const Renderer& renderer, const Picture& picture, Surface* surface,
          const Rectangle& place)
{
    require(renderer.status(surface) == successful);
    const auto* const data = reinterpret_cast<const unsigned char*>(picture.svg.data());
    const auto handle =
        owned(renderer.newFromData(data, picture.svg.size(), nullptr), renderer.unref);
    const auto context = owned(renderer.newContext(surface), renderer.destroyContext);
    require(handle != nullptr &&
            renderer.render(handle.get(), context.get(), &place, nullptr) != 0);
}

} // namespace

std::string pngOf(const Picture& picture)
{
    constexpr double pixels = 2; // small letters need them
    const Renderer renderer;
    const Rectangle place = {0, 0, std::round(picture.width * pixels),
                             std::round(picture.height * pixels)};
    const auto surface = owned(
        renderer.newImage(argb, static_cast<int>(place.width), static_cast<int>(place.height)),
        renderer.destroySurface);
    draw(renderer, picture, surface.get(), place);
    std::string bytes;
    require(renderer.writePng(surface.get(), append, &bytes) == successful);
    return bytes;
}

std::string pdfOf(const Picture& picture)
{
    constexpr double points = 0.75; // 96 units of a picture are an inch, which has 72 points
    const Renderer renderer;
    const Rectangle place = {0, 0, picture.width * points, picture.height * points};
    std::string bytes;
    const auto surface =
        owned(renderer.newPdf(append, &bytes, place.width, place.height), renderer.destroySurface);
    draw(renderer, picture, surface.get(), place);
    renderer.finish(surface.get());
    require(renderer.status(surface.get()) == successful);
    return bytes;
}

} // namespace plxclip::roll

#endif
