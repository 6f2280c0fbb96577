#include "hosts/ipc2581/svg/SvgPng.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>

#include <cairo.h>
#include <librsvg/rsvg.h>
#include <zlib.h>

namespace ipc2581::host {
namespace {

struct Free {
    void operator()(RsvgHandle * handle) const { g_object_unref(handle); }
    void operator()(GInputStream * stream) const { g_object_unref(stream); }
    void operator()(cairo_surface_t * surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t * context) const { cairo_destroy(context); }
    void operator()(GError * error) const { g_error_free(error); }
};

[[noreturn]] void Fail(GError * error)
{
    const std::unique_ptr<GError, Free> owned(error);
    throw std::runtime_error(std::string("cannot be drawn as PNG: ") + (owned ? owned->message : "unknown cause"));
}

std::unique_ptr<RsvgHandle, Free> Parsed(std::string_view svg)
{
    const std::unique_ptr<GInputStream, Free> stream(
        g_memory_input_stream_new_from_data(svg.data(), static_cast<gssize>(svg.size()), nullptr));
    GError * error = nullptr;
    // Pictures of boards are larger than what strangers may send.
    RsvgHandle * const handle =
        rsvg_handle_new_from_stream_sync(stream.get(), nullptr, RSVG_HANDLE_FLAG_UNLIMITED, nullptr, &error);
    if (handle == nullptr) {
        Fail(error);
    }
    return std::unique_ptr<RsvgHandle, Free>(handle);
}

double HeightToWidth(RsvgHandle * handle)
{
    gboolean hasBox = 0;
    RsvgRectangle box = {};
    rsvg_handle_get_intrinsic_dimensions(handle, nullptr, nullptr, nullptr, nullptr, &hasBox, &box);
    return hasBox != 0 && box.width > 0 ? box.height / box.width : 1.0;
}

// The allocator of a string may throw, and no exception may pass through the writer, which is C.
cairo_status_t Append(void * bytes, const unsigned char * data, unsigned count)
{
    try {
        static_cast<std::string *>(bytes)->append(reinterpret_cast<const char *>(data), count);
    }
    catch (const std::exception &) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

std::string BigEndian(unsigned long number)
{
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(number >> shift & 0xffU);
    }
    return bytes;
}

// A chunk of text with the mark, as PNG has it.
std::string MarkChunk()
{
    const std::string content = std::string("tEXtComment") + '\0' + std::string(PngMark);
    const unsigned long sum =
        crc32(0, reinterpret_cast<const Bytef *>(content.data()), static_cast<unsigned>(content.size()));
    constexpr std::size_t typeLength = 4;
    return BigEndian(content.size() - typeLength) + content + BigEndian(sum);
}

}  // namespace

std::string PngOf(std::string_view svg, int width)
{
    const std::unique_ptr<RsvgHandle, Free> handle = Parsed(svg);
    const int height = std::max(1, static_cast<int>(std::lround(HeightToWidth(handle.get()) * width)));
    const std::unique_ptr<cairo_surface_t, Free> surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    const std::unique_ptr<cairo_t, Free> context(cairo_create(surface.get()));
    const RsvgRectangle page = {0, 0, static_cast<double>(width), static_cast<double>(height)};
    GError * error = nullptr;
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("cannot be drawn as PNG: " + std::to_string(width) + " x " + std::to_string(height) +
                                 " pixels are too many; use a smaller --width");
    }
    if (rsvg_handle_render_document(handle.get(), context.get(), &page, &error) == 0) {
        Fail(error);
    }
    std::string bytes;
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), &Append, &bytes);
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(std::string("cannot be drawn as PNG: ") + cairo_status_to_string(status));
    }
    // Behind the signature and the first chunk, which has to be the first.
    constexpr std::size_t behindHeader = 33;
    return bytes.insert(behindHeader, MarkChunk());
}

}  // namespace ipc2581::host
