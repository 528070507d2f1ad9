#include "gif_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <fcntl.h>
#include <gif_lib.h>
#include <map>
#include <optional>
#include <unistd.h>
#include <vector>

namespace apsis::artgen {

namespace {

using Rgb = std::array<int, 3>;

struct Entry {
    Rgb colour;
    long count;
};

// Median cut: the colours in use are split, box by box, across the widest channel of the box
// with the most pixels, until there are as many boxes as palette entries; each entry is the
// pixel-weighted mean of its box.
std::vector<Rgb> medianCut(std::vector<Entry> colours, std::size_t wanted) {
    struct Box {
        std::size_t begin, end;
        long pixels;
    };
    auto widest = [&](const Box& box) {
        std::array<int, 3> low{255, 255, 255}, high{0, 0, 0};
        for (std::size_t i = box.begin; i < box.end; ++i) {
            for (std::size_t c = 0; c < 3; ++c) {
                low[c] = std::min(low[c], colours[i].colour[c]);
                high[c] = std::max(high[c], colours[i].colour[c]);
            }
        }
        std::size_t channel = 0;
        for (std::size_t c = 1; c < 3; ++c) {
            if (high[c] - low[c] > high[channel] - low[channel])
                channel = c;
        }
        return std::pair{channel, high[channel] - low[channel]};
    };
    long total = 0;
    for (const Entry& e : colours)
        total += e.count;
    std::vector<Box> boxes{{0, colours.size(), total}};
    while (boxes.size() < wanted) {
        // The box to split: most pixels among those holding more than one colour.
        std::size_t pick = boxes.size();
        for (std::size_t b = 0; b < boxes.size(); ++b) {
            if (boxes[b].end - boxes[b].begin > 1 &&
                (pick == boxes.size() || boxes[b].pixels > boxes[pick].pixels))
                pick = b;
        }
        if (pick == boxes.size())
            break;
        Box box = boxes[pick];
        const std::size_t channel = widest(box).first;
        const auto first = colours.begin() + static_cast<std::ptrdiff_t>(box.begin);
        const auto last = colours.begin() + static_cast<std::ptrdiff_t>(box.end);
        std::sort(first, last, [channel](const Entry& a, const Entry& b) {
            return a.colour[channel] != b.colour[channel] ? a.colour[channel] < b.colour[channel]
                                                          : a.colour < b.colour;
        });
        long half = 0;
        std::size_t split = box.begin + 1;
        for (std::size_t i = box.begin; i + 1 < box.end; ++i) {
            half += colours[i].count;
            split = i + 1;
            if (half * 2 >= box.pixels)
                break;
        }
        boxes[pick] = {box.begin, split, half};
        boxes.push_back({split, box.end, box.pixels - half});
    }
    std::vector<Rgb> palette;
    for (const Box& box : boxes) {
        std::array<double, 3> sum{};
        for (std::size_t i = box.begin; i < box.end; ++i) {
            for (std::size_t c = 0; c < 3; ++c)
                sum[c] += static_cast<double>(colours[i].colour[c] * colours[i].count);
        }
        Rgb mean{};
        for (std::size_t c = 0; c < 3; ++c)
            mean[c] = static_cast<int>(std::lround(sum[c] / static_cast<double>(box.pixels)));
        palette.push_back(mean);
    }
    return palette;
}

int nearest(const std::vector<Rgb>& palette, const Rgb& colour) {
    int best = 0;
    int bestDistance = 1 << 30;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        int distance = 0;
        for (std::size_t c = 0; c < 3; ++c)
            distance += (palette[i][c] - colour[c]) * (palette[i][c] - colour[c]);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = static_cast<int>(i);
        }
    }
    return best;
}

int toByte(float v) {
    return static_cast<int>(std::lround(std::clamp(v, 0.0f, 1.0f) * 255.0f));
}

} // namespace

bool writeGif(const Raster& raster, const std::string& path) {
    constexpr int kTransparent = 0;
    // Each pixel as its colour over black, or nothing.
    std::vector<std::optional<Rgb>> pixels;
    std::map<Rgb, long> counts;
    for (const Rgba& p : raster.pixels) {
        if (p.a < 0.5f) {
            pixels.emplace_back();
            continue;
        }
        const Rgb c{toByte(p.r), toByte(p.g), toByte(p.b)};
        pixels.emplace_back(c);
        ++counts[c];
    }
    std::vector<Entry> colours;
    colours.reserve(counts.size());
    for (const auto& [colour, count] : counts)
        colours.push_back({colour, count});
    const std::vector<Rgb> palette = medianCut(colours, 255);
    std::map<Rgb, int> index;
    for (const Entry& e : colours)
        index[e.colour] = nearest(palette, e.colour) + 1;

    std::array<GifColorType, 256> table{};
    for (std::size_t i = 0; i < palette.size(); ++i) {
        table[i + 1] = {static_cast<GifByteType>(palette[i][0]),
                        static_cast<GifByteType>(palette[i][1]),
                        static_cast<GifByteType>(palette[i][2])};
    }
    // Opened here rather than by giflib, which would leave the file readable by its owner alone.
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file < 0)
        return false;
    int error = 0;
    GifFileType* gif = EGifOpenFileHandle(file, &error);
    if (!gif) {
        ::close(file);
        return false;
    }
    EGifSetGifVersion(gif, true);
    ColorMapObject* map = GifMakeMapObject(256, table.data());
    bool ok = map && EGifPutScreenDesc(gif, raster.width, raster.height, 8, 0, map) == GIF_OK;
    GraphicsControlBlock control{};
    control.DisposalMode = DISPOSAL_UNSPECIFIED;
    control.DelayTime = 0;
    control.TransparentColor = kTransparent;
    std::array<GifByteType, 4> extension{};
    const auto length = EGifGCBToExtension(&control, extension.data());
    ok = ok && EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(length),
                                extension.data()) == GIF_OK;
    ok = ok && EGifPutImageDesc(gif, 0, 0, raster.width, raster.height, false, nullptr) == GIF_OK;
    std::vector<GifPixelType> line(static_cast<std::size_t>(raster.width));
    for (int y = 0; ok && y < raster.height; ++y) {
        for (int x = 0; x < raster.width; ++x) {
            const auto& p =
                pixels[static_cast<std::size_t>(y) * line.size() + static_cast<std::size_t>(x)];
            line[static_cast<std::size_t>(x)] =
                static_cast<GifPixelType>(p ? index[*p] : kTransparent);
        }
        ok = EGifPutLine(gif, line.data(), raster.width) == GIF_OK;
    }
    if (map)
        GifFreeMapObject(map);
    return EGifCloseFile(gif, &error) == GIF_OK && ok;
}

} // namespace apsis::artgen
